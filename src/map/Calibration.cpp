// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/Calibration.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "map/InputItems.h"
#include "platform/Text.h"

namespace halvern {
namespace {

/// A range for half heights from `least` to `most` nautical miles.
struct RangeRow {
    double least, most, range;
};

constexpr double NoMost = std::numeric_limits<double>::infinity();
constexpr RangeRow RangeRows[] = {
    {6144, NoMost, 8192},
    {3037, 6143, 4096},
    {1537, 3072, 2048},
    {768, 1536, 1024},
    {384, 767, 512},
    {192, 510, 256},
    {96, 191, 128},
    {48, 95, 64},
    {24, 47, 32},
    {12, 23, 16},
    {6, 11, 8},
    {3, 5, 4},
    {1.5, 2, 2},
    {0.75, 1, 1},
    {0.375, 0.74, 0.5},
    {0.1875, 0.374, 0.25},
    {0.09375, 0.1874, 0.125},
};
constexpr double ClosestRange = 0.0625;

/// Degrees, ".", minutes, hemisphere.
Success Corner(Items& items, char negativeSide, double& angle)
{
    std::string_view item;
    if (!items.Next(item)) return false;
    const auto point = item.find('.');
    if (point == 0 || point == std::string_view::npos || point + 1 == item.size()) return false;
    const auto degrees = ItemNumber(item.substr(0, point));
    if (!degrees || !std::all_of(item.begin(), item.begin() + static_cast<long>(point), IsDigit)) return false;
    const double value = *degrees + LeadingNumber(item.substr(point + 1)) / 60;
    angle = UpperCase(item.back()) == negativeSide ? -value : value;
    return true;
}

/// The corners as the map has them. @return nothing for what is no place on any globe, or one place twice
std::optional<Corners> WestPositive(Corners corners)
{
    constexpr double turn = 360;
    for (const double corner : {corners.top, corners.left, corners.bottom, corners.right})
        if (!(std::abs(corner) <= turn)) return {};
    if (corners.top == corners.bottom && corners.left == corners.right) return {};
    corners.left = -corners.left;
    corners.right = -corners.right;
    return corners;
}

} // namespace

std::optional<Corners> ReadTxtCalibration(std::string_view bytes)
{
    Items items(bytes);
    Corners corners;
    for (double* corner : {&corners.top, &corners.left, &corners.bottom, &corners.right})
        if (!items.Number(*corner)) return {};
    return WestPositive(corners);
}

std::optional<Corners> ReadInfCalibration(std::string_view bytes)
{
    Items items(bytes);
    Corners corners;
    if (!Corner(items, 'S', corners.top) || !Corner(items, 'W', corners.left)) return {};
    items.SkipLine();
    if (!Corner(items, 'S', corners.bottom) || !Corner(items, 'W', corners.right)) return {};
    return WestPositive(corners);
}

double RangeOfPicture(const Corners& corners)
{
    // Pictures that reach below one degree of latitude take the sum of their edges: their calibrations were made so.
    const bool bothNorth = corners.top >= 1 && corners.bottom >= 1;
    const double span = bothNorth ? corners.top - corners.bottom : corners.bottom + corners.top;
    const double half = std::round(std::abs(span) * 60 / 2 * 1e6) / 1e6; // the table's bounds are decimal numbers
    for (const auto& row : RangeRows)
        if (half >= row.least && half <= row.most) return row.range;
    return ClosestRange;
}

} // namespace halvern
