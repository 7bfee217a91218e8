// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Files.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <random>
#include <sys/stat.h>
#include <tuple>
#include <unistd.h>

#include "platform/Text.h"

namespace fs = std::filesystem;

namespace halvern {
namespace {

std::string WithSlashes(std::string path)
{
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

/// The entry of a folder with a name in any case; the exact name wins.
fs::path EntryOf(const fs::path& folder, const std::string& name)
{
    std::error_code error;
    if (const auto exact = folder / name; fs::exists(exact, error)) return exact;
    const auto wanted = LowerCase(name);
    for (const auto& entry : fs::directory_iterator(folder.empty() ? fs::path(".") : folder, error))
        if (LowerCase(entry.path().filename().string()) == wanted) return folder / entry.path().filename();
    return folder / name;
}

bool WriteAll(int file, std::string_view bytes)
{
    while (!bytes.empty()) {
        const auto written = ::write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool ReadAll(int file, std::string& bytes)
{
    for (std::size_t have = 0; have < bytes.size();) {
        const auto count = ::read(file, bytes.data() + have, bytes.size() - have);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return false;
        have += static_cast<std::size_t>(count);
    }
    return true;
}

/// Where links lead to, also where nothing stands there yet; nothing for links that go round.
std::optional<fs::path> BehindLinks(fs::path path)
{
    constexpr int mostLinks = 40;
    std::error_code error;
    for (int i = 0; i < mostLinks; ++i) {
        if (!fs::is_symlink(path, error)) return path;
        path = path.parent_path() / fs::read_symlink(path, error);
    }
    return {};
}

// A file in the making lies beside its target, under its name, digits that nobody can foresee, and this.
constexpr std::string_view InTheMaking = ".new";
constexpr int UnforeseenDigits = 8;

/// Makes a file of a name that was free. @return its descriptor, or -1 with errno set
int OpenFresh(const fs::path& target, std::string& name)
{
    std::random_device random;
    for (int tries = 0; tries < 16; ++tries) {
        name = target.string() + ".";
        for (int i = 0; i < UnforeseenDigits; ++i) name += static_cast<char>('0' + random() % 10);
        name += InTheMaking;
        const int file = ::open(name.c_str(), O_CREAT | O_EXCL | O_NOFOLLOW | O_WRONLY | O_CLOEXEC, 0644);
        if (file >= 0 || errno != EEXIST) return file;
    }
    return -1;
}

/// Removes what writers of the target left behind that were stopped halfway.
void RemoveLeftovers(const fs::path& target)
{
    const auto begin = target.filename().string() + ".";
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(target.parent_path(), ignored)) {
        const auto name = entry.path().filename().string();
        if (!name.starts_with(begin) || !name.ends_with(InTheMaking)) continue;
        const auto digits = std::string_view(name).substr(begin.size());
        if (digits.size() == UnforeseenDigits + InTheMaking.size() &&
            std::all_of(digits.begin(), digits.begin() + UnforeseenDigits, IsDigit))
            fs::remove(entry.path(), ignored);
    }
}

std::vector<std::string> Entries(const std::string& folder, bool folders)
{
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder, error))
        if (entry.is_directory(error) == folders) names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace

std::string DiskFiles::Resolved(const std::string& path) const
{
    std::error_code error;
    const fs::path asked = WithSlashes(path);
    if (fs::exists(asked, error)) return asked.string();
    fs::path found = asked.root_path();
    for (const auto& name : asked.relative_path()) found = name.empty() ? found / name : EntryOf(found, name.string());
    return found.string();
}

std::string DiskFiles::Shown(const std::string& path) const
{
    return shown == PathForm::System ? Resolved(path) : path;
}

bool DiskFiles::Exists(const std::string& path) const
{
    std::error_code error;
    return fs::is_regular_file(Resolved(path), error);
}

bool DiskFiles::FolderExists(const std::string& path) const
{
    std::error_code error;
    return fs::is_directory(Resolved(path), error);
}

std::optional<std::string> DiskFiles::Read(const std::string& path) const
{
    const int file = ::open(Resolved(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK); // a pipe must not hold us up
    if (file < 0) return {};
    struct stat status {};
    std::optional<std::string> bytes;
    if (::fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_size <= LongestFile) {
        bytes.emplace(static_cast<std::size_t>(status.st_size), '\0');
        if (!ReadAll(file, *bytes)) bytes.reset();
    }
    ::close(file);
    return bytes;
}

std::string DiskFiles::Write(const std::string& path, std::string_view bytes)
{
    const auto target = BehindLinks(Resolved(path));
    if (!target) return std::strerror(ELOOP);
    struct stat old {};
    const bool replaces = ::stat(target->c_str(), &old) == 0;
    if (replaces && !S_ISREG(old.st_mode)) return "It is no plain file";
    RemoveLeftovers(*target);
    std::string fresh;
    const int file = OpenFresh(*target, fresh);
    if (file < 0) return std::strerror(errno);
    if (replaces) std::ignore = ::fchmod(file, old.st_mode & 07777);
    bool good = WriteAll(file, bytes) && ::fsync(file) == 0;
    int reason = errno;
    if (::close(file) != 0 && good) good = false, reason = errno;
    if (good && ::rename(fresh.c_str(), target->c_str()) != 0) good = false, reason = errno;
    if (good) return {};
    ::unlink(fresh.c_str());
    return std::strerror(reason);
}

bool DiskFiles::Remove(const std::string& path)
{
    std::error_code error;
    return fs::remove(Resolved(path), error);
}

bool DiskFiles::Rename(const std::string& from, const std::string& to)
{
    std::error_code error;
    fs::rename(Resolved(from), Resolved(to), error);
    return !error;
}

std::vector<std::string> DiskFiles::Names(const std::string& folder) const
{
    return Entries(Resolved(folder), false);
}

std::vector<std::string> DiskFiles::Folders(const std::string& folder) const
{
    return Entries(Resolved(folder), true);
}

std::unique_ptr<OutputFile> DiskFiles::OpenForOutput(const std::string& path, std::string& trouble)
{
    return OpenLinesForOutput(Resolved(path), trouble);
}

std::unique_ptr<InputFile> DiskFiles::OpenForInput(const std::string& path, std::string& trouble) const
{
    return OpenLinesForInput(Resolved(path), trouble);
}

} // namespace halvern
