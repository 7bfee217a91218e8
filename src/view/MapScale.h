// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

/// The figures of a map: round lengths for its scale, degrees for its net.
namespace halvern {

/// The longest of 1, 2 or 5 times a power of ten that is not above `most`; 0 where that is not above 0.
double RoundLength(double most);

/// The round number of degrees or minutes that a line of a net is meant to stand at: a map in whole units has it a
/// little beside. `spacing` is from line to line, degrees.
double RoundInNet(double degrees, double spacing);

/// "40°N", "73°57.5'W": degrees, north or west positive, and minutes to the tenth where there are any. A longitude may
/// lie whole turns outside of 180 to -180. UTF-8.
std::string LatitudeFigure(double degrees);
std::string LongitudeFigure(double degrees);

} // namespace halvern
