// SPDX-License-Identifier: GPL-3.0-or-later
// The bytes of tiles, of calibration files and of picture heads. Lines stay inside the view, corners on the globe, and
// a picture has sides that a map can be scaled by.
#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "map/Calibration.h"
#include "map/UsgsMapFile.h"
#include "platform/PictureSize.h"

using namespace halvern;

namespace {

void Require(bool holds)
{
    if (!holds) std::abort();
}

class Inside final : public MapLines {
public:
    void Start(double x, double y, int colour) override { LineTo(x, y, colour); }
    void LineTo(double x, double y, int colour) override
    {
        Require(x > 60 && x < 80 && y > 30 && y < 50 && colour >= 0 && colour <= 9);
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    Inside lines;
    ReadTileLines(bytes, {.left = 80, .top = 50, .right = 60, .bottom = 30}, lines);
    for (const auto& corners : {ReadTxtCalibration(bytes), ReadInfCalibration(bytes)}) {
        if (!corners) continue;
        for (const double corner : {corners->top, corners->left, corners->bottom, corners->right})
            Require(std::abs(corner) <= 360);
        Require(RangeOfPicture(*corners) >= 0.0625);
    }
    if (const auto side = PictureSize(bytes)) Require(side->width > 0 && side->height > 0);
    return 0;
}
