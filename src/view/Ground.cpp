// SPDX-License-Identifier: GPL-3.0-or-later
#include "view/Ground.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <numbers>
#include <utility>

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
    constexpr double crumb = 1e-6;   // what is exactly on an edge stays there, whatever its last bit says
    constexpr int around = 18 * 240; // fields of 240 sub-squares each way
    const double eastward = std::remainder(-point.lon, 360) + 180, northward = point.lat + 90;
    int east = static_cast<int>(eastward * 12 + crumb) % around; // sub-squares are 5 by 2.5 minutes
    int north = std::min(static_cast<int>(northward * 24 + crumb), around - 1);
    const auto part = [](int& count, int size) { return std::exchange(count, count % size) / size; };
    std::string locator;
    for (const auto& [size, first] : {std::pair{240, 'A'}, {24, '0'}, {1, 'a'}}) {
        locator += static_cast<char>(first + part(east, size));
        locator += static_cast<char>(first + part(north, size));
    }
    return locator;
}

std::string PlaceInWords(std::optional<GroundPoint> own, GroundPoint place)
{
    auto words = Maidenhead(place);
    if (!own || words.empty()) return words;
    const double miles = GroundDistance(*own, place), kilometres = miles * NauticalMile;
    const auto decimals = [](double length) { return length < 99.95 ? 1 : 0; };
    const long bearing = std::lround(GroundBearing(*own, place)) % 360;
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), "  %.*f nm %.*f km  %03ld\u00B0", decimals(miles), miles,
                  decimals(kilometres), kilometres, bearing);
    return words + text.data();
}

} // namespace halvern
