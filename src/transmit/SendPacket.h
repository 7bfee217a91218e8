// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "state/Halvern.h"

namespace halvern {

/// Sends a packet on the radio ports; the one road to them. A call, an SSID or a path that does not fit an AX.25
/// frame is told to the operator, and nothing is sent.
///
/// @param dest, src  calls with an optional "-SSID"
/// @param path       at most 8 entries with commas between, "*" behind a used one; empty for none
/// @param payload    the information field; once the packet is sent it holds the escaped form
/// @param port       empty: every open radio port; "TNC"; any other word: the sound card
void SendPacket(Halvern& halvern, std::string_view dest, std::string_view src, std::string_view path,
                std::string& payload, std::string_view port);

} // namespace halvern
