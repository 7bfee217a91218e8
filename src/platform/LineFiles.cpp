// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/LineFiles.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <tuple>
#include <unistd.h>
#include <utility>
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
        length += static_cast<off_t>(row.size());
        return true;
    }
    std::string Trouble() const override { return trouble; }
    bool Is(const std::string& path) const override { return IsFile(file, path); }

private:
    /// Half a row would be another packet: what of it was written is taken back.
    bool Fail(const char* why)
    {
        trouble = why;
        std::ignore = ::ftruncate(file, length);
        return false;
    }

    const int file;
    off_t length = 0; ///< of whole rows
    std::string row, trouble;
};

/// Blocks of a file, unpacked on the way where gzip made it. Of one that is cut short or spoiled everything in front of
/// the fault is handed on.
class Blocks {
public:
    explicit Blocks(int file) : file(file), raw(Size), unpacked(Size) {}
    ~Blocks()
    {
        ::inflateEnd(&stream);
        ::close(file);
    }
    Blocks(const Blocks&) = delete;
    Blocks& operator=(const Blocks&) = delete;

    /// The next block, which holds until the next call; an empty one at the end.
    std::string_view Next()
    {
        if (!std::exchange(begun, true)) {
            const auto first = Load();
            constexpr int gzipOnly = 16;
            packed = first.starts_with(Magic) && ::inflateInit2(&stream, MAX_WBITS + gzipOnly) == Z_OK;
            inMember = packed;
            if (!packed) return first;
        }
        return packed ? Unpack() : Load();
    }
    std::uint64_t BytesRead() const { return bytesRead; }
    const std::string& Trouble() const { return trouble; }
    bool Is(const std::string& path) const { return IsFile(file, path); }

private:
    static constexpr unsigned Size = 1U << 18;
    static constexpr std::string_view Magic = "\x1F\x8B";

    std::string_view Load()
    {
        ssize_t count = 0;
        do count = ::read(file, raw.data(), Size);
        while (count < 0 && errno == EINTR);
        if (count < 0) trouble = std::strerror(errno);
        const auto got = static_cast<std::size_t>(std::max<ssize_t>(count, 0));
        bytesRead += got;
        stream.next_in = reinterpret_cast<Bytef*>(raw.data());
        stream.avail_in = static_cast<uInt>(got);
        return {raw.data(), got};
    }

    /// gzip files may follow one another in one; what else follows fills a tape's block, or means nothing.
    std::string_view Unpack()
    {
        stream.next_out = reinterpret_cast<Bytef*>(unpacked.data());
        stream.avail_out = Size;
        while (stream.avail_out > 0 && !over) {
            if (stream.avail_in == 0 && Load().empty()) {
                over = true;
                if (inMember && trouble.empty()) trouble = "The file ends in the middle";
            } else if (!inMember && *stream.next_in != static_cast<unsigned char>(Magic[0])) {
                over = true;
            } else {
                if (!std::exchange(inMember, true)) ::inflateReset(&stream);
                const int result = ::inflate(&stream, Z_NO_FLUSH);
                inMember = result != Z_STREAM_END;
                over = inMember && result != Z_OK && result != Z_BUF_ERROR;
                if (over) trouble = std::string("It can't be unpacked (") + (stream.msg ? stream.msg : "?") + ")";
            }
        }
        return {unpacked.data(), Size - stream.avail_out};
    }

    const int file;
    std::vector<char> raw, unpacked;
    z_stream stream{};
    bool begun = false, packed = false;
    bool inMember = false; ///< in the middle of one of the packed files
    bool over = false;
    std::uint64_t bytesRead = 0;
    std::string trouble;
};

class DiskInput final : public InputFile {
public:
    DiskInput(int file, std::uint64_t size) : blocks(file), size(size) {}

    bool ReadLine(std::string_view& line) override
    {
        pieces.clear();
        for (;;) {
            if (rest.empty()) rest = blocks.Next();
            if (rest.empty()) break;
            const auto end = rest.find('\n');
            const auto piece = rest.substr(0, end);
            rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
            if (end != std::string_view::npos && pieces.empty()) return Deliver(piece, line);
            pieces += piece.substr(0, std::min(piece.size(), LongestLine - pieces.size()));
            if (end != std::string_view::npos) return Deliver(pieces, line);
        }
        return !pieces.empty() && Deliver(pieces, line);
    }
    ReadSoFar SoFar() const override { return {lines, blocks.BytesRead(), size}; }
    std::string Trouble() const override { return blocks.Trouble(); }
    bool Is(const std::string& path) const override { return blocks.Is(path); }

private:
    bool Deliver(std::string_view text, std::string_view& line)
    {
        line = text.substr(0, LongestLine);
        if (line.ends_with('\r')) line.remove_suffix(1);
        constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF"; // of editors that write UTF-8
        if (lines++ == 0 && line.starts_with(byteOrderMark)) line.remove_prefix(byteOrderMark.size());
        return true;
    }

    Blocks blocks;
    const std::uint64_t size;
    std::string_view rest; ///< of the block, not handed on yet
    std::string pieces;    ///< of a line that reaches over the end of a block
    std::uint64_t lines = 0;
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
