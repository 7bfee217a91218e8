// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "relay/Decisions.h"
#include "state/Halvern.h"

/// The i-gate: what is heard on radio goes to the Internet as it is; messages for stations heard on radio, and the
/// packets of chosen stations, come back as third-party packets.
namespace halvern {

/// What the gate does with a line heard on radio, after the engine has had it. The sender's hops are kept in
/// `HeardOnRfLst`, the smallest count that was seen; whatever passes goes to the Internet without a byte changed. A
/// message for a station that is heard direct stays on radio.
Decision RfGateStep(Halvern& halvern, const std::string& line);

/// What the gate does with a line from the Internet, after the engine has had it. A message for a station that was
/// heard on radio within the hop limit goes there, at once or after the hold, and the sender's position behind it.
Decision InternetGateStep(Halvern& halvern, const std::string& line);

/// `IgateMessHold` has run out: a second of the hold is over. The message goes to radio when the hold is through, or
/// nowhere if another gate has been first. One message is held at a time; a newer one takes its place, and the seconds
/// go on.
Decision MessageHoldTick(Halvern& halvern);

} // namespace halvern
