// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ApplicationFolder.h"

#include <algorithm>
#include <array>

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

} // namespace

std::string ApplicationFolder(const fs::path& program, const fs::path& userData)
{
    if (HoldsData(program)) return fs::absolute(program);
    const auto folder = fs::absolute(userData) / "halvern";
    for (const char* place : {"../share/halvern", "../../data"}) {
        const auto source = (program / place).lexically_normal();
        if (!HoldsData(source)) continue;
        LinkInto(folder, source);
        break;
    }
    return folder;
}

} // namespace halvern
