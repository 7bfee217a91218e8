// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string_view>

#include "state/Halvern.h"

namespace halvern {

/// Brings the copies for display up to date, and where `DeadOnOpt` is on moves every moving station along its last
/// course and speed. Its rows stay: the next report puts the station back.
void Refresh(Halvern& halvern);

/// How a station or an object moves.
struct Motion {
    int course = 0; ///< degrees
    int speed = 0;  ///< knots
};
/// The motion that a row bears behind its symbol, "ccc/sss"; nothing for a station that stands.
std::optional<Motion> MotionOf(std::string_view row);

/// One step of dead reckoning, in degrees to add, west positive.
struct Displacement {
    double latitude = 0, longitude = 0;
};
/// @param course    degrees, clockwise from north
/// @param distance  nautical miles
/// @param range     of the view: the farther the operator looks from, the shorter the step
Displacement AlongCourse(int course, double distance, double range);

} // namespace halvern
