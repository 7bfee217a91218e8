// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace halvern {

/// What is wrong with one field of a position, in the words that the operator gets, or an empty text. The fields are
/// looked at one by one and never together, so that 90 degrees and 59 minutes pass.
///
/// @param name  which field it is: "Degrees of Latitude", "Minutes of Latitude", "Decimal Minutes Of Latitude",
///              "Hemisphere Of Latitude", and the same four of the longitude
std::string PositionFieldFault(std::string_view text, std::string_view name);

} // namespace halvern
