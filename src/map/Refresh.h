// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

namespace halvern {

/// Brings the copies for display up to date, and where `DeadOnOpt` is on moves every moving station along its last
/// course and speed. Its rows stay: the next report puts the station back.
void Refresh(Halvern& halvern);

/// One step of dead reckoning, in degrees to add, west positive.
struct Displacement {
    double latitude = 0, longitude = 0;
};
/// @param course    degrees, clockwise from north
/// @param distance  nautical miles
/// @param range     of the view: the farther the operator looks from, the shorter the step
Displacement AlongCourse(int course, double distance, double range);

} // namespace halvern
