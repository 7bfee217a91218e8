// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "state/Halvern.h"

/// Distances and directions over the ground, a sphere of the earth's mean radius.
namespace halvern {

inline constexpr double EarthRadius = 6371;     ///< kilometres
inline constexpr double NauticalMile = 1.852;   ///< kilometres
inline constexpr double StatuteMile = 1.609344; ///< kilometres

/// Degrees, north and west positive. A longitude may lie whole turns outside of 180 to -180.
struct GroundPoint {
    double lat = 0, lon = 0;
};

/// The shortest way over the ground, in nautical miles.
double GroundDistance(GroundPoint from, GroundPoint to);

/// The direction in which that way begins, degrees from north over east, 0 up to 360.
double GroundBearing(GroundPoint from, GroundPoint to);

/// The point of the compass that a bearing is nearest to, one of eight: "NE".
const char* CompassPoint(double bearing);

/// The Maidenhead locator: field, square, sub-square, as in "FN30hr". Empty where a pole is passed or nothing is
/// finite. Source: IARU Region 1 VHF managers' handbook.
std::string Maidenhead(GroundPoint point);

/// A place in the words of a status bar: "FN30as  12.4 nm 23.0 km  087°", the locator alone where `own` is not known.
/// UTF-8.
std::string PlaceInWords(std::optional<GroundPoint> own, GroundPoint place);

/// Where a row of `PosLst` says that its station is.
GroundPoint PlaceOfRow(std::string_view row);

/// Where the own station was heard last; nothing as long as it was not.
std::optional<GroundPoint> OwnPlace(const Halvern& halvern);

} // namespace halvern
