// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Data records of Ultimeter weather stations: "$ULTW", hexadecimal fields without marks between, a carriage return.
/// Source: Peet Brothers' description of the Ultimeter's data logger mode.
namespace halvern {

/// Takes the first record out of what has arrived. All that stood in the buffer goes with it, noise in front included;
/// what can still become a record waits there, in less than 60 bytes.
///
/// @return the record from its "$" on, without its carriage return; nothing until one is whole
std::optional<std::string> TakeUltimeterRecord(std::string& buffer);

/// A record as the weather text of an APRS report, from the wind's direction to the barometer (APRS protocol reference,
/// chapter 12). Winds in miles an hour, temperature in degrees Fahrenheit, rain in hundredths of an inch.
///
/// @return an empty text for a record that is too long, or too short for its fields, that has another character than 0
///         to 9 and A to F in them (a station writes "----" for a sensor that it does not have), or a value that the
///         report has no room for
std::string WeatherOfUltimeter(std::string_view record);

} // namespace halvern
