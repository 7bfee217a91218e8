// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace halvern {

/// Cuts an NMEA 0183 sentence into fields; the checksum becomes a field of its own and is not verified.
///
/// Speed and course of a "$GPRMC" (fields 8 and 9) come out as whole numbers of three digits.
/// @param fields  filled from index 1 on; field 1 is the sentence's name
/// @param count   on entry the number of fields wanted; -1 on failure
void SplitSentence(std::string_view sentence, std::vector<std::string>& fields, std::int16_t& count);

} // namespace halvern
