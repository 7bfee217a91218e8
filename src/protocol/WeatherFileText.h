// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace halvern {

/// What keeps a weather file from being sent.
enum class WeatherFileFault {
    None,
    OtherFile,   ///< begins with neither a month's name nor "_"
    NoDirection, ///< a report without a position, and without the wind's direction in its place
    NoSpeed,     ///< the same, without the wind's speed
    HalfWritten  ///< ends before the weather text, or in the middle of one of its fields, or holds no text
};

/// A weather file as its writer left it.
struct WeatherFileText {
    WeatherFileFault fault = WeatherFileFault::None;
    std::string weather; ///< from the wind's direction on, as the file has it; empty where there is a fault
};

/// Reads the file of a weather program. Lines end in CR, LF or both; the last one may have no end.
///
/// Two forms are known. A date ("Jan", ... at its beginning) with the weather text in the line below; or an APRS report
/// without a position, "_MMDDhhmmc220s004g005..." (APRS protocol reference, chapter 12), whose "s" becomes a "/". No
/// field is looked into, but the last one where the line has no end: the other program may be writing it.
WeatherFileText ReadWeatherFile(std::string_view bytes);

} // namespace halvern
