// SPDX-License-Identifier: GPL-3.0-or-later
// The bytes of a line map, as a disk might hold them. Whatever they are, painters get finite places and colours that
// exist, a line never comes before its first point, and each point has cost some bytes.
#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "map/DosMapFile.h"

using namespace halvern;

namespace {

class Checked final : public MapLines {
public:
    void Start(double x, double y, int colour) override
    {
        begun = true;
        LineTo(x, y, colour);
    }
    void LineTo(double x, double y, int colour) override
    {
        ++points;
        if (!begun || !std::isfinite(x) || !std::isfinite(y) || colour < 0 || colour > 15) std::abort();
    }
    std::size_t points = 0;

private:
    bool begun = false;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Checked lines;
    std::string format;
    const auto end = ReadMapLines({reinterpret_cast<const char*>(data), size}, lines, format);
    if (lines.points > size || (end == MapFileEnd::UnknownFormat && lines.points > 0)) std::abort();
    return 0;
}
