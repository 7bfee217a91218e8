// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "state/Halvern.h"

namespace halvern {

/// The only way into the station stores: files one text line, decodes it and counts its station.
///
/// @param line  "SOURCE>DEST,PATH:INFO"; rewritten in place (line ends removed, third-party unwrapped)
/// @param tag   where it came from; only "TNC", "SOUND", "PSK63" and "TCPIP" choose a road for answers
void ProcessPacket(Halvern& halvern, std::string& line, std::string_view tag);

/// Weather reports and sentences: there is no time in them that can be relied on, so their raw rows end with that of
/// their arrival, "ddhhmmss".
bool BearsArrival(std::string_view info);

} // namespace halvern
