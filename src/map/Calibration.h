// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string_view>

namespace halvern {

/// The corners of a picture that serves as a map. Degrees, north positive, west positive.
struct Corners {
    double top = 0, left = 0, bottom = 0, right = 0;
};

/// Top, left, bottom, right as four decimal numbers, east positive in the file. @return nothing for a bad file
std::optional<Corners> ReadTxtCalibration(std::string_view bytes);

/// Two lines, top left and bottom right, each a latitude and a longitude: degrees, ".", minutes, hemisphere, such as
/// 41.30.5N,73.15W. @return nothing for a bad file
std::optional<Corners> ReadInfCalibration(std::string_view bytes);

/// The range of a picture, in nautical miles. It may be off the ladder, and where the height of the picture falls
/// between two rows of the table it is the closest range of all.
double RangeOfPicture(const Corners& corners);

} // namespace halvern
