// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Files.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>
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

class DiskOutput final : public OutputFile {
public:
    explicit DiskOutput(const std::string& path) : out(path, std::ios::binary | std::ios::trunc) {}
    bool Open() const { return out.is_open(); }
    bool PrintLine(std::string_view line) override
    {
        out.clear();
        out << line << CrLf << std::flush;
        return out.good();
    }

private:
    std::ofstream out;
};

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

std::vector<std::string> Entries(const std::string& folder, bool folders)
{
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder, error))
        if (entry.is_directory(error) == folders) names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

int LittleEndian(std::string_view bytes, std::size_t at)
{
    return static_cast<unsigned char>(bytes[at]) | static_cast<unsigned char>(bytes[at + 1]) << 8;
}

int BigEndian(std::string_view bytes, std::size_t at)
{
    return static_cast<unsigned char>(bytes[at]) << 8 | static_cast<unsigned char>(bytes[at + 1]);
}

/// A BMP file that is stored from the top down has a negative height.
int BitmapSide(std::string_view bytes, std::size_t at)
{
    const auto low = static_cast<std::uint32_t>(LittleEndian(bytes, at));
    const auto high = static_cast<std::uint32_t>(LittleEndian(bytes, at + 2));
    const auto side = static_cast<std::int32_t>(low | high << 16);
    return side < 0 && side != INT32_MIN ? -side : side;
}

/// Walks over the segments of a JPEG file to the one that begins a frame, which holds the size.
PixelSize JpegSize(std::string_view bytes)
{
    std::size_t at = 2;
    while (at + 9 <= bytes.size() && bytes[at] == '\xFF') {
        const auto kind = static_cast<unsigned char>(bytes[at + 1]);
        const bool frame = kind >= 0xC0 && kind <= 0xCF && kind != 0xC4 && kind != 0xC8 && kind != 0xCC;
        if (frame) return {BigEndian(bytes, at + 7), BigEndian(bytes, at + 5)};
        at += 2 + static_cast<std::size_t>(BigEndian(bytes, at + 2));
    }
    return {};
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
    if (!Exists(path)) return {};
    std::ifstream in(Resolved(path), std::ios::binary);
    if (!in) return {};
    std::string bytes;
    in.seekg(0, std::ios::end);
    const auto size = static_cast<std::streamoff>(in.tellg());
    if (size > 0) bytes.resize(static_cast<std::size_t>(size));
    in.seekg(0);
    in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (in.gcount() != static_cast<std::streamsize>(bytes.size())) return {};
    return bytes;
}

std::string DiskFiles::Write(const std::string& path, std::string_view bytes)
{
    const auto target = Resolved(path);
    const auto fresh = target + ".new";
    const int file = ::open(fresh.c_str(), O_CREAT | O_WRONLY | O_TRUNC | O_CLOEXEC, 0644);
    if (file < 0) return std::strerror(errno);
    bool good = WriteAll(file, bytes) && ::fsync(file) == 0;
    int reason = errno;
    if (::close(file) != 0 && good) good = false, reason = errno;
    if (good && ::rename(fresh.c_str(), target.c_str()) != 0) good = false, reason = errno;
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

std::unique_ptr<OutputFile> DiskFiles::OpenForOutput(const std::string& path)
{
    auto file = std::make_unique<DiskOutput>(Resolved(path));
    if (!file->Open()) return nullptr;
    return file;
}

std::optional<PixelSize> PictureSize(std::string_view bytes)
{
    PixelSize size;
    if (bytes.size() >= 10 && (bytes.starts_with("GIF87a") || bytes.starts_with("GIF89a")))
        size = {LittleEndian(bytes, 6), LittleEndian(bytes, 8)};
    else if (bytes.size() >= 24 && bytes.starts_with("\x89PNG\r\n\x1a\n"))
        size = {BigEndian(bytes, 18), BigEndian(bytes, 22)};
    else if (bytes.size() >= 26 && bytes.starts_with("BM"))
        size = {BitmapSide(bytes, 18), BitmapSide(bytes, 22)};
    else if (bytes.starts_with("\xFF\xD8"))
        size = JpegSize(bytes);
    if (size.width < 1 || size.height < 1) return {};
    return size;
}

} // namespace halvern
