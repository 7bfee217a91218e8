// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Positions in the output of a GPS receiver. Sources: NMEA 0183; APRS protocol reference, chapter 6 and 7.
namespace halvern {

/// Where a receiver is, in the words of a position report.
struct Fix {
    std::string latitude;  ///< at most DDMM.hh, and its side
    std::string longitude; ///< at most DDDMM.hh, and its side
    std::string motion;    ///< course, "/", speed in knots, where the sentence tells them; else empty
};

/// Is it a "$GPGGA", "$GPGLL" or "$GPRMC"?
bool TellsFix(std::string_view sentence);

/// Reads one of these three; the checksum behind "*" is not verified. @return nothing for any other sentence, for one
/// with too few fields, and where the receiver has no fix.
std::optional<Fix> ReadFix(std::string_view sentence);

/// The fix of the first sentence of that name in a block of a receiver's output, which may begin and end anywhere.
///
/// The sentence goes up to the block's next "*". A receiver that gives it no checksum may so lend the one of the
/// sentence behind; fields that run into each other by that are no fix.
/// @param name  without the "$": "GPRMC"
std::optional<Fix> FixInBlock(std::string_view block, std::string_view name);

} // namespace halvern
