// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace halvern {

/// What is wrong with one field of a position, in the words that the operator gets, or an empty text. The fields are
/// looked at one by one and never together, so that 90 degrees and 59 minutes pass.
///
/// @param name  which field it is: "Degrees of Latitude", "Minutes of Latitude", "Decimal Minutes Of Latitude",
///              "Hemisphere Of Latitude", and the same four of the longitude
std::string PositionFieldFault(std::string_view text, std::string_view name);

/// What stands in the fields of a position: degrees, minutes, hundredths and hemisphere of the latitude, then the same
/// four of the longitude.
using PositionTexts = std::array<std::string, 8>;

/// The first thing that is wrong with the fields of a position, or an empty text.
///
/// @param ending  how the words for an empty field end: " first.", or with the place of the fields in it
std::string PositionFault(const PositionTexts& texts, std::string_view ending);

/// Which of the fields that is; nothing where all are right.
std::optional<std::size_t> FaultyPart(const PositionTexts& texts);

/// A place as the fields take it, to the hundredth of a minute. Degrees, north and west positive; a longitude past the
/// date line counts from the other side, a latitude past a pole is the pole.
PositionTexts PositionTextsOf(double latitude, double longitude);

} // namespace halvern
