// SPDX-License-Identifier: GPL-3.0-or-later
#include "protocol/WeatherFileText.h"

#include <algorithm>
#include <array>
#include <utility>

#include "state/Rows.h"

namespace halvern {
namespace {

constexpr std::array<std::string_view, 12> Months{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                  "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr std::size_t WindWidth = 7;     // "220/004"
constexpr std::size_t LongestText = 229; // what a frame's information field has room for behind time and position

struct Line {
    std::string_view text;
    bool ended = false;
};

/// Takes the next line off the bytes.
Line NextLine(std::string_view& bytes)
{
    const auto end = bytes.find_first_of("\r\n");
    if (end == std::string_view::npos) return {std::exchange(bytes, {}), false};
    const Line line{bytes.substr(0, end), true};
    bytes.remove_prefix(end + (bytes.substr(end).starts_with(CrLf) ? CrLf.size() : 1));
    return line;
}

/// Columns of a field's value by its letter, or 0 for what begins no field.
std::size_t WidthOf(char letter)
{
    if (letter == 'h') return 2;
    if (letter == 'b') return 5;
    return std::string_view("gtrpPLls#").find(letter) != std::string_view::npos ? 3 : 0;
}

/// Does a text end with fewer characters of a value than its field has? What is no field may end anywhere.
bool EndsInsideAField(std::string_view weather)
{
    if (weather.size() < WindWidth) return true;
    for (std::size_t at = WindWidth; at < weather.size();) {
        const auto width = WidthOf(weather[at++]);
        const auto value = weather.substr(at, width);
        if (width == 0 || value.find_first_not_of("0123456789.- ") != std::string_view::npos) return false;
        if (value.size() < width) return true;
        at += width;
    }
    return false;
}

bool IsControl(char character)
{
    return static_cast<unsigned char>(character) < ' ' || character == '\x7F';
}

/// The fault of a line, where it has been written as far as the column that shows it.
WeatherFileText Faulty(WeatherFileFault fault, const Line& line, std::size_t column)
{
    return {line.ended || line.text.size() >= column ? fault : WeatherFileFault::HalfWritten, {}};
}

WeatherFileText Checked(const Line& line, std::string weather)
{
    if (weather.empty() || weather.size() > LongestText || std::ranges::any_of(weather, IsControl) ||
        (!line.ended && EndsInsideAField(weather)))
        return {WeatherFileFault::HalfWritten, {}};
    return {WeatherFileFault::None, std::move(weather)};
}

WeatherFileText ReadPositionless(const Line& line)
{
    namespace row = positionlessRow;
    if (UpperCase(ColumnAt(line.text, row::DirectionMark)) != 'C')
        return Faulty(WeatherFileFault::NoDirection, line, row::DirectionMark);
    if (!Holds(UpperCase(row::SpeedMark(line.text)), "S"))
        return Faulty(WeatherFileFault::NoSpeed, line, row::SpeedMark.first + row::SpeedMark.count - 1);
    std::string weather(row::FromDirection(line.text));
    weather[UpperCase(weather).find('S')] = '/';
    return Checked(line, std::move(weather));
}

} // namespace

WeatherFileText ReadWeatherFile(std::string_view bytes)
{
    const auto first = NextLine(bytes);
    if (first.text.starts_with('_')) return ReadPositionless(first);
    const auto begins = [&](std::string_view month) { return first.text.starts_with(month); };
    if (std::ranges::none_of(Months, begins)) return Faulty(WeatherFileFault::OtherFile, first, Months[0].size());
    const auto second = NextLine(bytes);
    return Checked(second, std::string(second.text));
}

} // namespace halvern
