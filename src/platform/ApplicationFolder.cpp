// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ApplicationFolder.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace fs = std::filesystem;

namespace halvern {
namespace {

constexpr const char* Mark = "dosmaps"; ///< what no data folder lacks

/// Folders that operators put files of their own into.
constexpr std::array<std::string_view, 4> Shared{"bitmap", "dosmaps", "maplist", "mapdata"};

bool HoldsData(const fs::path& folder)
{
    std::error_code none;
    return fs::is_directory(folder / Mark, none);
}

void LinkInto(const fs::path& folder, const fs::path& source)
{
    std::error_code ignored; // a link that can't be made is missed as any other file is, with its own message
    fs::create_directories(folder, ignored);
    for (const auto& entry : fs::directory_iterator(source, ignored)) {
        const auto link = folder / entry.path().filename();
        if (fs::is_symlink(link, ignored) && !fs::exists(link, ignored)) fs::remove(link, ignored); // the data moved
        if (std::ranges::count(Shared, link.filename().string()) != 0)
            LinkInto(link, entry);
        else if (!fs::exists(link, ignored))
            fs::create_symlink(fs::absolute(entry.path()), link, ignored);
    }
}

fs::path FolderOfProgram()
{
    std::error_code unknown;
    return fs::read_symlink("/proc/self/exe", unknown).parent_path();
}

/// Where programs keep a user's data. (XDG Base Directory Specification.)
fs::path UserData()
{
    const auto variable = [](const char* name) {
        return fs::path(std::getenv(name) != nullptr ? std::getenv(name) : "");
    };
    const auto data = variable("XDG_DATA_HOME");
    return data.is_absolute() ? data : variable("HOME") / ".local/share";
}

} // namespace

std::string ApplicationFolder(const fs::path& program, const fs::path& userData)
{
    if (HoldsData(program)) return fs::absolute(program);
    const auto folder = fs::absolute(userData) / "halvern";
    for (const char* place : {"../share/halvern", "../../share/halvern", "../../data"}) {
        const auto source = (program / place).lexically_normal();
        if (!HoldsData(source)) continue;
        LinkInto(folder, source);
        break;
    }
    return folder;
}

fs::path CompanionProgram(const std::string& name)
{
    std::error_code none;
    const auto installed = (FolderOfProgram() / "../lib/halvern" / name).lexically_normal();
    return fs::exists(installed, none) ? installed : FolderOfProgram() / name;
}

std::string StationFolder(const std::string& named)
{
    if (named.empty()) return ApplicationFolder(FolderOfProgram(), UserData());
    auto folder = fs::absolute(named).string();
    while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
    return folder;
}

} // namespace halvern
