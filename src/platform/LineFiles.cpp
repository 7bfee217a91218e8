// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/LineFiles.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>
#include <zlib.h>

#include "platform/Text.h"

namespace halvern {
namespace {

bool IsFile(int file, const std::string& path)
{
    struct stat open, named;
    return ::fstat(file, &open) == 0 && ::stat(path.c_str(), &named) == 0 && open.st_dev == named.st_dev &&
           open.st_ino == named.st_ino;
}

/// @return -1 and the reason where there is no plain file, or the system refuses it
int OpenPlain(const std::string& path, int flags, std::string& trouble)
{
    const int file = ::open(path.c_str(), flags | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0644);
    struct stat about;
    if (file < 0 || ::fstat(file, &about) != 0) {
        trouble = std::strerror(errno);
    } else if (!S_ISREG(about.st_mode)) {
        trouble = "It is no plain file";
    } else {
        return file;
    }
    if (file >= 0) ::close(file);
    return -1;
}

class DiskOutput final : public OutputFile {
public:
    explicit DiskOutput(int file) : file(file) {}
    ~DiskOutput() override { ::close(file); }
    DiskOutput(const DiskOutput&) = delete;
    DiskOutput& operator=(const DiskOutput&) = delete;

    bool PrintLine(std::string_view line) override
    {
        row.assign(line).append(CrLf);
        for (std::string_view rest = row; !rest.empty();) {
            const auto written = ::write(file, rest.data(), rest.size());
            if (written < 0 && errno == EINTR) continue;
            if (written <= 0) return Fail(std::strerror(errno));
            rest.remove_prefix(static_cast<std::size_t>(written));
        }
        struct stat about;
        if (::fstat(file, &about) == 0 && about.st_nlink == 0) return Fail("The file was taken away");
        return true;
    }
    std::string Trouble() const override { return trouble; }
    bool Is(const std::string& path) const override { return IsFile(file, path); }

private:
    bool Fail(const char* why)
    {
        trouble = why;
        return false;
    }

    const int file;
    std::string row, trouble;
};

/// Reads through zlib, which hands on a file that is not packed as it is.
class DiskInput final : public InputFile {
public:
    DiskInput(int file, std::uint64_t size) : file(file), packed(::gzdopen(file, "rb")), size(size), block(BlockSize)
    {
        if (packed != nullptr) ::gzbuffer(packed, BlockSize);
    }
    ~DiskInput() override
    {
        packed != nullptr ? static_cast<void>(::gzclose(packed)) : static_cast<void>(::close(file));
    }
    DiskInput(const DiskInput&) = delete;
    DiskInput& operator=(const DiskInput&) = delete;

    bool ReadLine(std::string_view& line) override
    {
        pieces.clear();
        for (;;) {
            if (rest.empty() && !Fill()) break;
            const auto end = rest.find('\n');
            const auto piece = rest.substr(0, end);
            rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
            if (end != std::string_view::npos && pieces.empty()) return Deliver(piece, line);
            pieces += piece.substr(0, std::min(piece.size(), LongestLine - pieces.size()));
            if (end != std::string_view::npos) return Deliver(pieces, line);
        }
        return !pieces.empty() && Deliver(pieces, line);
    }
    ReadSoFar SoFar() const override
    {
        const auto offset = packed == nullptr ? 0 : ::gzoffset(packed);
        return {lines, offset > 0 ? static_cast<std::uint64_t>(offset) : 0, size};
    }
    std::string Trouble() const override { return trouble; }
    bool Is(const std::string& path) const override { return IsFile(file, path); }

private:
    static constexpr unsigned BlockSize = 1U << 18;

    bool Fill()
    {
        const int count = packed == nullptr ? -1 : ::gzread(packed, block.data(), BlockSize);
        int error = Z_OK;
        if (count <= 0 && packed != nullptr) {
            const char* const words = ::gzerror(packed, &error);
            if (error == Z_ERRNO)
                trouble = std::strerror(errno);
            else if (error != Z_OK)
                trouble = error == Z_BUF_ERROR ? "The file ends in the middle" : words;
        }
        if (packed == nullptr) trouble = "There is no memory to read it";
        rest = {block.data(), count > 0 ? static_cast<std::size_t>(count) : 0};
        return count > 0;
    }
    bool Deliver(std::string_view text, std::string_view& line)
    {
        line = text.substr(0, LongestLine);
        if (line.ends_with('\r')) line.remove_suffix(1);
        ++lines;
        return true;
    }

    const int file;
    gzFile packed;
    const std::uint64_t size;
    std::vector<char> block;
    std::string_view rest; ///< of the block, not handed on yet
    std::string pieces;    ///< of a line that reaches over the end of a block
    std::uint64_t lines = 0;
    std::string trouble;
};

} // namespace

std::unique_ptr<OutputFile> OpenLinesForOutput(const std::string& path, std::string& trouble)
{
    const int file = OpenPlain(path, O_CREAT | O_WRONLY, trouble);
    if (file < 0) return nullptr;
    if (::ftruncate(file, 0) != 0) {
        trouble = std::strerror(errno);
        ::close(file);
        return nullptr;
    }
    return std::make_unique<DiskOutput>(file);
}

std::unique_ptr<InputFile> OpenLinesForInput(const std::string& path, std::string& trouble)
{
    const int file = OpenPlain(path, O_RDONLY, trouble);
    if (file < 0) return nullptr;
    struct stat about {};
    ::fstat(file, &about);
    return std::make_unique<DiskInput>(file, static_cast<std::uint64_t>(about.st_size));
}

} // namespace halvern
