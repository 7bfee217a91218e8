// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace halvern {

/// What became of a packet that carries an NMEA sentence.
enum class SentenceResult {
    Position,   ///< `info` now holds a plain position report
    NotDecoded, ///< a sentence that is not read here
    Drop        ///< a line that is good for nothing
};

/// Rewrites "$GPGGA", "$GPGLL" and "$GPRMC" into a plain position report. The symbol comes from a "GPSxy" destination,
/// or else from the source's SSID. Sources: NMEA 0183; APRS protocol reference, chapter 20.
SentenceResult SentenceToReport(std::string_view source, std::string_view dest, std::string& info);

} // namespace halvern
