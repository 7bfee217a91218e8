// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "state/Halvern.h"

namespace halvern {

/// Sorts a message by its addressee: a bulletin, an ack or a message to the own station, one to another SSID of the
/// own call, or traffic between others. A message to the own station is acked by the port that it came in on.
///
/// @param info  from the ":" on
/// @param tag   the road that the line came by
/// @return whether the line goes on to the heard count
bool ReceiveMessage(Halvern& halvern, std::string_view info, std::string_view tag);

} // namespace halvern
