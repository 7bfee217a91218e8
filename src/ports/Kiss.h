// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "state/Halvern.h"

namespace halvern {

/// Turns a received AX.25 UI frame, KISS framing removed, into "SRC>DEST,PATH:INFO"; "NG" for any other frame.
///
/// The digipeater runs inside and may transmit. Source: AX.25 2.2, section 3; KISS by Chepponis and Karn.
std::string KissFrameToText(Halvern& halvern, std::string frame);

/// Undoes the KISS escapes in place: 219 220 is 192, 219 221 is 219; 219 before anything else swallows it.
void KissUnescape(std::string& frame);

/// Sends a packet on the radio ports; the one road to them. A call, an SSID or a path that does not fit an AX.25
/// frame is told to the operator, and nothing is sent.
///
/// @param dest, src  calls with an optional "-SSID"
/// @param path       at most 8 entries with commas between, "*" behind a used one; empty for none
/// @param payload    the information field; on return it holds the escaped form
/// @param port       empty: every open radio port; "TNC"; any other word: the sound card
void SendPacket(Halvern& halvern, std::string_view dest, std::string_view src, std::string_view path,
                std::string& payload, std::string_view port);

} // namespace halvern
