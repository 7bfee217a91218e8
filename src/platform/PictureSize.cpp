// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/PictureSize.h"

#include <cmath>
#include <cstdint>

namespace halvern {
namespace {

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

/// Bytes of a file in order; behind its end there are zeros.
class Bytes {
public:
    explicit Bytes(std::string_view bytes) : bytes(bytes) {}
    bool Past() const { return at > bytes.size(); }
    void Skip(std::size_t count) { at += count; }
    unsigned Next() { return at < bytes.size() ? static_cast<unsigned char>(bytes[at++]) : (++at, 0U); }
    /// Little-endian, at a place of the file.
    std::uint64_t Number(std::size_t place, int length) const
    {
        std::uint64_t number = 0;
        for (int i = length; i-- > 0;) number = number << 8 | static_cast<unsigned char>(bytes[place + i]);
        return number;
    }

private:
    std::string_view bytes;
    std::size_t at = 0;
};

void SkipColours(Bytes& bytes, unsigned flags)
{
    if ((flags & 0x80) != 0) bytes.Skip(std::size_t{6} << (flags & 7));
}

void SkipPieces(Bytes& bytes)
{
    for (unsigned length = bytes.Next(); length != 0; length = bytes.Next()) bytes.Skip(length);
}

/// The first picture of a GIF file comes to its end. (GIF89a, sections 18 to 22.)
bool GifEnds(std::string_view file)
{
    constexpr unsigned extension = 0x21, image = 0x2C;
    Bytes bytes(file);
    bytes.Skip(10);
    const auto flags = bytes.Next();
    bytes.Skip(2);
    SkipColours(bytes, flags);
    for (auto kind = bytes.Next(); !bytes.Past(); kind = bytes.Next()) {
        if (kind != extension && kind != image) return false;
        bytes.Skip(kind == extension ? 1 : 8);
        if (kind == image) {
            SkipColours(bytes, bytes.Next());
            bytes.Skip(1);
        }
        SkipPieces(bytes);
        if (kind == image) return !bytes.Past();
    }
    return false;
}

/// Rows of a BMP file that is not packed are all there.
bool BitmapEnds(std::string_view file, const PixelSize& size)
{
    constexpr std::size_t head = 54;
    if (file.size() < head) return false;
    const Bytes bytes(file);
    if (bytes.Number(30, 4) != 0) return true;
    const double row = std::ceil(static_cast<double>(bytes.Number(28, 2)) * size.width / 32) * 4;
    return static_cast<double>(bytes.Number(10, 4)) + row * size.height <= static_cast<double>(file.size());
}

/// Behind the last scan of a JPEG file there is its end mark.
bool JpegEnds(std::string_view file)
{
    const auto scan = file.rfind("\xFF\xDA"), end = file.rfind("\xFF\xD9");
    return scan != std::string_view::npos && end != std::string_view::npos && end > scan;
}

bool Ends(std::string_view file, const PixelSize& size)
{
    if (file.starts_with("GIF")) return GifEnds(file);
    if (file.starts_with("BM")) return BitmapEnds(file, size);
    return !file.starts_with("\xFF\xD8") || JpegEnds(file);
}

} // namespace

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

std::optional<PixelSize> WholePictureSize(std::string_view bytes)
{
    constexpr double most = 1 << 27; // pixels: what takes a byte each and more is no picture of a map or a symbol
    const auto size = PictureSize(bytes);
    if (!size || static_cast<double>(size->width) * size->height > most || !Ends(bytes, *size)) return {};
    return size;
}

} // namespace halvern
