// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "state/Halvern.h"

namespace halvern {

/// Turns a received AX.25 UI frame, KISS framing removed, into "SRC>DEST,PATH:INFO"; "NG" for any other frame.
/// The digipeater runs inside and may transmit.
std::string KissFrameToText(Halvern& halvern, std::string frame);

/// Takes what has arrived on a KISS port and hands on at most one packet: the next one waits for the next arrival.
/// The first two bytes of a frame are taken for its opening FEND and its command byte and not looked at.
///
/// @param buffer  what came before and is not consumed yet
/// @param tag     "TNC" or "SOUND"
void ReceiveKissBytes(Halvern& halvern, std::string& buffer, std::string_view bytes, std::string_view tag);

} // namespace halvern
