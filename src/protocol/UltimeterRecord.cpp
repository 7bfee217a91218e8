// SPDX-License-Identifier: GPL-3.0-or-later
#include "protocol/UltimeterRecord.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

#include "state/Rows.h"

namespace halvern {
namespace {

constexpr std::string_view Start = "$ULTW";
constexpr std::string_view HexDigits = "0123456789ABCDEF";

// Newer stations have more fields. Rain today and the wind's average are there in these lengths alone.
constexpr std::size_t ShortestRecord = 41, WithRainToday = 53, WithAverage = 57;

constexpr int LongestThree = 999, LowestTemperature = -99, FullHumidity = 100;

int Value(std::string_view record, ColumnRange field)
{
    const auto digits = field(record);
    int value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    return value;
}

/// The station measures in tenths of a kilometre an hour.
int MilesAnHour(int tenths)
{
    return static_cast<int>(tenths * 62137LL / 1000000);
}

std::string Degrees(int degrees)
{
    return degrees < 0 ? "-" + ZeroFilled(-degrees, 2) : ZeroFilled(degrees, 3);
}

/// Three digits, up to 9.99 inches. There is no room for more: then the total goes out as inches, which nobody takes
/// for hundredths as long as it has its point; whole inches get a 0 where there is a place for it.
std::string Rain(int hundredths)
{
    const int inches = hundredths / 100;
    if (inches < 10) return ZeroFilled(hundredths, 3);
    if (hundredths % 100 != 0) return PlainNumber(hundredths / 100.0);
    return std::to_string(inches) + (inches < 100 ? "0" : "");
}

/// The number of millibars without its point, in five digits. A whole number has no tenths to show, so it comes out one
/// digit down; our reports have always had it so, and what reads them allows for it.
std::string Pressure(int tenths)
{
    auto digits = PlainNumber(tenths / 10.0);
    RemoveAll(digits, '.');
    return digits.size() < 5 ? std::string(5 - digits.size(), '0') + digits : digits;
}

} // namespace

std::optional<std::string> TakeUltimeterRecord(std::string& buffer)
{
    buffer.erase(0, std::min(buffer.find(Start), buffer.size() - std::min(buffer.size(), Start.size() - 1)));
    const auto end = buffer.starts_with(Start) ? buffer.find('\r') : std::string::npos;
    if (end != std::string::npos) {
        auto record = buffer.substr(0, end);
        buffer.clear();
        return record;
    }
    buffer.resize(std::min(buffer.size(), WithAverage + 1)); // too long already, whatever follows
    return {};
}

std::string WeatherOfUltimeter(std::string_view record)
{
    namespace row = ultimeterRow;
    if (record.size() < ShortestRecord || record.size() > WithAverage) return {};
    if (row::Fields(record).find_first_not_of(HexDigits) != std::string_view::npos) return {};

    const int gust = MilesAnHour(Value(record, row::WindPeak));
    const bool averaged = record.size() == WithAverage;
    const int speed = averaged ? MilesAnHour(Value(record, row::WindAverage)) : gust;
    const int degrees = static_cast<std::int16_t>(Value(record, row::Temperature)) / 10;
    const int humidity = Value(record, row::Humidity) / 10;
    if (std::max({gust, speed, degrees}) > LongestThree || degrees < LowestTemperature || humidity > FullHumidity)
        return {};

    const bool knowsToday = averaged || record.size() == WithRainToday;
    return ZeroFilled(Value(record, row::WindDirection), 3) + "/" + ZeroFilled(speed, 3) + "g" + ZeroFilled(gust, 3) +
           "t" + Degrees(degrees) + "r...p" + Rain(Value(record, row::RainTotal)) + "P" +
           (knowsToday ? Rain(Value(record, row::RainToday)) : "...") + "h" + ZeroFilled(humidity % FullHumidity, 2) +
           "b" + Pressure(Value(record, row::Barometer));
}

} // namespace halvern
