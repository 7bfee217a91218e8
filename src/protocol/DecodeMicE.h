// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace halvern {

/// The six texts of a Mic-E report, indices 1 to 6: latitude, symbol table, longitude, symbol code, "CCC/SSS", and the
/// status behind one blank. Behind the packet's type character they make a plain position report.
using MicEFields = std::array<std::string, 7>;

/// Decodes a Mic-E report. Source: APRS protocol reference, chapter 10; our roundings are our own.
///
/// @param destination  holds latitude, message bits and flags in its first six characters
/// @param info         the information field; overwritten by "PacketNoGood" on failure
void DecodeMicE(std::string_view destination, std::string& info, MicEFields& fields);

} // namespace halvern
