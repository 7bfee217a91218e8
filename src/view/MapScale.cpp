// SPDX-License-Identifier: GPL-3.0-or-later
#include "view/MapScale.h"

#include <cmath>

#include "platform/Text.h"

namespace halvern {
namespace {

/// @param letter  of the hemisphere; none on its border
std::string Figure(double degrees, const char* letter)
{
    const long tenths = std::lround(std::abs(degrees) * 600); // of minutes
    auto text = std::to_string(tenths / 600) + "\u00B0";
    if (tenths % 600 != 0) text += PlainNumber(static_cast<double>(tenths % 600) / 10) + "'";
    return tenths == 0 ? text : text + letter;
}

} // namespace

double RoundLength(double most)
{
    if (!(most > 0) || !std::isfinite(most)) return 0;
    const double power = std::pow(10, std::floor(std::log10(most)));
    for (const double digit : {5, 2})
        if (digit * power <= most) return digit * power;
    return power;
}

double RoundInNet(double degrees, double spacing)
{
    constexpr double nearEnough = 0.05;
    for (const double minutes : {60.0, 30.0, 10.0, 5.0, 2.5}) {
        const double round = std::round(degrees * 60 / minutes) * minutes / 60;
        if (std::abs(round - degrees) < spacing * nearEnough) return round;
    }
    return degrees;
}

std::string LatitudeFigure(double degrees)
{
    return Figure(degrees, degrees < 0 ? "S" : "N");
}

std::string LongitudeFigure(double degrees)
{
    const double near = std::remainder(degrees, 360);
    return Figure(near, std::abs(near) == 180 ? "" : near < 0 ? "E" : "W");
}

} // namespace halvern
