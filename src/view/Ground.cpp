// SPDX-License-Identifier: GPL-3.0-or-later
#include "view/Ground.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace halvern {
namespace {

constexpr double Radian = std::numbers::pi / 180;

} // namespace

double GroundDistance(GroundPoint from, GroundPoint to)
{
    const double sinLat = std::sin((to.lat - from.lat) * Radian / 2);
    const double sinLon = std::sin((to.lon - from.lon) * Radian / 2);
    const double chord = sinLat * sinLat + std::cos(from.lat * Radian) * std::cos(to.lat * Radian) * sinLon * sinLon;
    return 2 * EarthRadius / NauticalMile * std::asin(std::min(1.0, std::sqrt(chord)));
}

double GroundBearing(GroundPoint from, GroundPoint to)
{
    const double east = (from.lon - to.lon) * Radian;
    const double y = std::sin(east) * std::cos(to.lat * Radian);
    const double x = std::cos(from.lat * Radian) * std::sin(to.lat * Radian) -
                     std::sin(from.lat * Radian) * std::cos(to.lat * Radian) * std::cos(east);
    return std::fmod(std::atan2(y, x) / Radian + 360, 360);
}

const char* CompassPoint(double bearing)
{
    static constexpr std::array<const char*, 8> points{"N", "NE", "E", "SE", "S", "SW", "W", "NW"};
    return points[static_cast<std::size_t>(std::lround(bearing / 45)) % points.size()];
}

std::string Maidenhead(GroundPoint point)
{
    if (!(std::abs(point.lat) <= 90) || !std::isfinite(point.lon)) return {};
    struct Level {
        int count; ///< parts that each side is cut into
        char first;
    };
    static constexpr Level levels[] = {{18, 'A'}, {10, '0'}, {24, 'a'}};
    double east = std::fmod(std::remainder(-point.lon, 360) + 180, 360) / 360;
    double north = (point.lat + 90) / 180;
    std::string locator;
    for (const auto& [count, first] : levels)
        for (double* side : {&east, &north}) {
            const int part = std::min(static_cast<int>(*side * count), count - 1); // the pole itself is in the last one
            *side = *side * count - part;
            locator += static_cast<char>(first + part);
        }
    return locator;
}

} // namespace halvern
