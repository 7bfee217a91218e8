// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string_view>

/// Weather in the information field of a packet, in the seven forms that stations send it. Source: APRS protocol
/// reference, chapter 12; the records of Peet Brothers' stations.
namespace halvern {

enum class WeatherQuantity { Temperature, Barometer, Wind, Gust, Humidity, Rain };

/// What a report says of one quantity.
struct WeatherReading {
    enum class Kind {
        None,      ///< no weather form
        Missing,   ///< this form of station does not measure it
        Malformed, ///< something else than digits stands in its place: blanks, dots, a sign, small letters
        Good
    };
    Kind kind = Kind::None;
    float value = 0; ///< degrees Fahrenheit; the barometer's number in the unit of its form; wind and gust in miles an
                     ///< hour; humidity in per cent, 0 for all hundred; rain of the last hour in inches
    std::int16_t gauge = 0;     ///< of the wind: where the needle of the compass gauge stands, 0 to 360
    std::int16_t direction = 0; ///< of the wind: degrees
};

/// Whether an information field looks like weather at first sight: by its first character, or by the weather symbol in
/// one of the places where it can stand. The first sight takes more than the reading does.
bool LooksLikeWeather(std::string_view info);

/// Reads one quantity. The first form that fits decides.
WeatherReading ReadWeather(std::string_view info, WeatherQuantity quantity);

} // namespace halvern
