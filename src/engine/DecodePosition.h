// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "state/Halvern.h"

namespace halvern {

/// What DecodePosition writes over the call field on failure.
inline constexpr const char* PacNoGood = "PacNoGood";

/// Turns a report in plain position form into the station's row of `PosLst` and its symbol on the map, and carries out
/// what a watch on the station asks for.
///
/// @param call       the call field, 9 characters; "PacNoGood" on failure
/// @param info       the report from its type character on, with a ddhhmmz stamp or with none; blanks in the
///                   coordinates become "0"
/// @param latitude   degrees, north positive; `longitude` west positive
/// @return false when the full store had to start again: the line in hand is gone, and its handling ends
bool DecodePosition(Halvern& halvern, std::string& call, std::string& info, float& latitude, float& longitude);

} // namespace halvern
