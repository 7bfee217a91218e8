// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "protocol/Ax25.h"
#include "relay/Decisions.h"
#include "state/Halvern.h"

namespace halvern {

/// Repeats a frame that is due here: for the alias, where that is switched on, and for the own call; a frame that names
/// both goes out twice. What it changes in the path stays in `frame`.
///
/// @return the last repeat, or why there was none
Decision Digipeat(Halvern& halvern, ReceivedFrame& frame);

/// Looks for a call in a path and, if it is the next to repeat, puts the own call and "*" in its place.
///
/// The call is found as plain text, so "Q0OWN" is found in "Q0OWN-5" too, and only its first occurrence counts. The
/// next to repeat is the first entry, or one whose predecessor is used.
///
/// @param path   with its leading comma, before and after
/// @param count  of used entries; one more after a substitution
/// @return nothing after a substitution, or why there was none
std::optional<Reason> DigiSubstitute(std::string& path, std::int16_t& count, std::string_view call,
                                     std::string_view ownCall);

} // namespace halvern
