// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "protocol/Ax25.h"
#include "state/Halvern.h"

namespace halvern {

/// Repeats a frame that is due here: for the alias, where that is switched on, and for the own call; a frame that names
/// both goes out twice. What it changes in the path stays in `frame`.
void Digipeat(Halvern& halvern, ReceivedFrame& frame);

/// Looks for a call in a path and, if it is the next to repeat, puts the own call and "*" in its place.
///
/// The call is found as plain text, so "Q0OWN" is found in "Q0OWN-5" too, and only its first occurrence counts. The
/// next to repeat is the first entry, or one whose predecessor is used.
///
/// @param path   with its leading comma, before and after
/// @param count  of used entries; one more after a substitution
void DigiSubstitute(std::string& path, std::int16_t& count, std::string_view call, std::string_view ownCall);

} // namespace halvern
