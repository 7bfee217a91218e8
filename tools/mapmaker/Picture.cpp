// SPDX-License-Identifier: GPL-3.0-or-later
#include "Picture.h"

#include "Output.h"

#include <cpl_vsi.h>
#include <gdal_priv.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>

namespace halvern::mapmaker {

namespace {

/// The colours in which the program draws its maps, as 0xRRGGBB.
constexpr std::array<int, 16> Palette{0x000000, 0x345EA8, 0x3FB05C, 0x2FB0BE, 0xEB5A5A, 0xC46BD0, 0xC08A45, 0xC3C9CE,
                                      0x8C949B, 0x9AC2FF, 0x7CE694, 0x74E8F2, 0xFF938A, 0xF0A5F5, 0xFFE066, 0xFFFFFF};

/// A raster of colour numbers.
class Raster {
public:
    Raster(int width, int height)
        : width_(width), height_(height), pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height))
    {
    }

    void Line(double x1, double y1, double x2, double y2, int colour)
    {
        const int steps = 1 + static_cast<int>(std::max(std::abs(x2 - x1), std::abs(y2 - y1)));
        for (int i = 0; i <= steps; ++i) {
            const int x = static_cast<int>(x1 + (x2 - x1) * i / steps);
            const int y = static_cast<int>(y1 + (y2 - y1) * i / steps);
            if (x >= 0 && x < width_ && y >= 0 && y < height_)
                pixels_[static_cast<std::size_t>(y * width_ + x)] = static_cast<std::uint8_t>(colour);
        }
    }

    std::uint8_t* Pixels() { return pixels_.data(); }

private:
    int width_;
    int height_;
    std::vector<std::uint8_t> pixels_;
};

struct Closer {
    void operator()(GDALDataset* dataset) const { GDALClose(dataset); }
};

/// The bytes of a GIF file.
std::string Gif(Raster& raster, int width, int height)
{
    const char* const name = "/vsimem/picture.gif";
    GDALAllRegister();
    GDALDriver* memory = GetGDALDriverManager()->GetDriverByName("MEM");
    GDALDriver* gif = GetGDALDriverManager()->GetDriverByName("GIF");
    if (!memory || !gif) throw std::runtime_error("this GDAL can't write GIF files");
    const std::unique_ptr<GDALDataset, Closer> picture(memory->Create("", width, height, 1, GDT_Byte, nullptr));
    GDALRasterBand* band = picture->GetRasterBand(1);
    GDALColorTable colours;
    for (int i = 0; i < static_cast<int>(Palette.size()); ++i) {
        const int colour = Palette[static_cast<std::size_t>(i)];
        const auto part = [&](int shift) { return static_cast<short>(colour >> shift & 255); };
        const GDALColorEntry entry{part(16), part(8), part(0), 255};
        colours.SetColorEntry(i, &entry);
    }
    band->SetColorTable(&colours);
    if (band->RasterIO(GF_Write, 0, 0, width, height, raster.Pixels(), width, height, GDT_Byte, 0, 0) != CE_None)
        throw std::runtime_error("the picture can't be made");
    if (!std::unique_ptr<GDALDataset, Closer>(gif->CreateCopy(name, picture.get(), FALSE, nullptr, nullptr, nullptr)))
        throw std::runtime_error("this GDAL can't make the GIF file");
    vsi_l_offset size = 0;
    const GByte* bytes = VSIGetMemFileBuffer(name, &size, FALSE);
    std::string text(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size));
    VSIUnlink(name);
    return text;
}

} // namespace

void DrawPicture(const std::filesystem::path& gif, const Box& frame, int width, int height,
                 const std::vector<DrawnLine>& lines)
{
    Raster raster(width, height);
    const auto x = [&](const Vertex& place) { return (frame.left - place.lon) / (frame.left - frame.right) * width; };
    const auto y = [&](const Vertex& place) { return (frame.top - place.lat) / (frame.top - frame.bottom) * height; };
    for (const DrawnLine& line : lines)
        for (const Path& piece : Clip(line.vertices, frame))
            for (std::size_t i = 1; i < piece.size(); ++i)
                raster.Line(x(piece[i - 1]), y(piece[i - 1]), x(piece[i]), y(piece[i]), line.colour);
    WriteWhole(gif, Gif(raster, width, height));
    char text[96];
    std::snprintf(text, sizeof text, "%.6g\n%.6g\n%.6g\n%.6g\n", frame.top, -frame.left, frame.bottom, -frame.right);
    std::filesystem::path calibration = gif;
    WriteWhole(calibration.replace_extension(".txt"), text);
}

} // namespace halvern::mapmaker
