// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace halvern {

/// The packet in a line of a recorded file.
///
/// A line that begins with a packet is that packet. In front of one there may be the moment of its reception, as other
/// programs write it: "2024-05-31 12:00:00 UTC: ", "2024-05-31T12:00:00Z ", "12:00:00 ", or a tag in brackets,
/// "[12:00:00] ". A row of a packet engine's CSV log, which keeps no packet but what it read in one, becomes a report
/// of that place, or a status.
/// @param made  keeps a packet that had to be put together
/// @return a view into `line` or `made`; the line itself where no packet is found; empty for a row without a packet
std::string_view PacketIn(std::string_view line, std::string& made);

} // namespace halvern
