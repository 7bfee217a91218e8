// SPDX-License-Identifier: GPL-3.0-or-later
#include "protocol/RecordedLine.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "platform/Text.h"
#include "protocol/PacketHeader.h"

namespace halvern {
namespace {

bool BeginsWithPacket(std::string_view line)
{
    const auto colon = line.find(':');
    return colon != std::string_view::npos && ReadPacketHeader(line.substr(0, colon + 1)).has_value();
}

/// Takes off what looks like the pattern, in which "0" is any digit. @return whether it was there
bool Take(std::string_view& text, std::string_view pattern)
{
    if (text.size() < pattern.size()) return false;
    for (std::size_t i = 0; i < pattern.size(); ++i)
        if (pattern[i] == '0' ? !IsDigit(text[i]) : text[i] != pattern[i]) return false;
    text.remove_prefix(pattern.size());
    return true;
}

/// What stands behind a date, a time and what may follow them; the whole line where it begins with neither.
std::string_view BehindMoment(std::string_view line)
{
    auto rest = line;
    const bool dated = Take(rest, "0000-00-00") || Take(rest, "0000/00/00");
    if (dated && !Take(rest, " ") && !Take(rest, "T")) return line;
    if (!Take(rest, "00:00:00")) return line;
    if (Take(rest, ".")) rest.remove_prefix(std::min(rest.find_first_not_of("0123456789"), rest.size()));
    for (const std::string_view behind : {"Z", "+00:00", "-00:00", " UTC", ":", ",", " "}) Take(rest, behind);
    return TrimmedLeft(rest);
}

/// What stands behind a tag in brackets.
std::string_view BehindTag(std::string_view line)
{
    constexpr std::size_t longestTag = 40;
    const auto end = line.find(']');
    return line.starts_with('[') && end < longestTag ? TrimmedLeft(line.substr(end + 1)) : line;
}

// --- rows of a CSV log -----------------------------------------------------------------------------------------------

/// Columns of the log that the common sound card packet engine writes, counted from 0.
enum CsvColumn {
    UnixTime = 1,
    IsoTime,
    Source,
    Heard,
    DataType = 7,
    Name,
    Symbol,
    Latitude,
    Longitude,
    Speed,
    Course,
    StatusText = 19,
    Telemetry,
    Comment,
    CsvColumns
};

/// Fields between commas; one in double quotes may hold commas, and a doubled quote is a quote.
std::vector<std::string> CsvFields(std::string_view row)
{
    std::vector<std::string> fields(1);
    bool quoted = false;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const char character = row[i];
        if (character == '"' && quoted && i + 1 < row.size() && row[i + 1] == '"') {
            fields.back() += row[++i];
        } else if (character == '"') {
            quoted = !quoted;
        } else if (character == ',' && !quoted) {
            fields.emplace_back();
        } else {
            fields.back() += character;
        }
    }
    return fields;
}

/// Degrees in decimals as DDMM.hhN or DDDMM.hhE, here east positive; empty for what is no such number.
std::string PlaceText(const std::string& degrees, int places, double most, std::string_view sides)
{
    char* end = nullptr;
    const double value = std::strtod(degrees.c_str(), &end);
    if (degrees.empty() || *end != '\0' || !(std::fabs(value) <= most)) return {};
    constexpr long perDegree = 6000; // hundredths of a minute
    const long hundredths = std::lround(std::fabs(value) * perDegree);
    return ZeroFilled(hundredths / perDegree, places) + ZeroFilled(hundredths % perDegree / 100, 2) + "." +
           ZeroFilled(hundredths % 100, 2) + sides[value < 0 ? 1 : 0];
}

/// "CCC/SSS", or nothing where the row has none.
std::string CourseAndSpeed(const std::vector<std::string>& row)
{
    if (row[Course].empty() && row[Speed].empty()) return {};
    const auto three = [](const std::string& field) {
        return ZeroFilled(std::clamp(RoundHalfToEven(LeadingNumber(field)), 0L, 999L), 3);
    };
    return three(row[Course]) + "/" + three(row[Speed]);
}

std::string PositionInfo(const std::vector<std::string>& row)
{
    const auto latitude = PlaceText(row[Latitude], 2, 90, "NS"), longitude = PlaceText(row[Longitude], 3, 180, "EW");
    if (latitude.empty() || longitude.empty() || row[Symbol].size() != 2) return {};
    const auto report = latitude + row[Symbol][0] + longitude + row[Symbol][1] + CourseAndSpeed(row) + row[Comment];
    if (row[DataType] != ";") return (row[DataType] == "=" || row[DataType] == "@" ? "=" : "!") + report;
    // "2024-05-31T12:00:00Z" has the day in columns 9 and 10, hour and minute in 12, 13 and 15, 16
    const auto& moment = row[IsoTime];
    const auto stamp = Columns(moment, 9, 2), hour = Columns(moment, 12, 2), minute = Columns(moment, 15, 2);
    return ";" + CallField(row[Name]) + "*" + std::string(stamp) + std::string(hour) + std::string(minute) + "z" +
           report;
}

bool IsCsvRow(std::string_view line)
{
    auto rest = line.substr(std::min(line.find(','), line.size()));
    return !line.empty() && IsDigit(line.front()) && Take(rest, ",000000000");
}

/// Whoever was heard directly with a packet of somebody else has repeated it.
std::string PacketOfCsvRow(std::string_view line)
{
    const auto row = CsvFields(line);
    if (row.size() < CsvColumns) return {};
    auto info = PositionInfo(row);
    const auto& words = row[StatusText].empty() ? row[Comment] : row[StatusText];
    if (info.empty() && !words.empty()) info = ">" + words;
    if (info.empty()) return {};
    const bool repeated = !row[Heard].empty() && row[Heard] != row[Source];
    auto packet = PacketLine(row[Source], "APRS", repeated ? row[Heard] + "*" : "", info);
    return BeginsWithPacket(packet) ? packet : std::string();
}

} // namespace

std::string_view PacketIn(std::string_view line, std::string& made)
{
    const bool mayBeMore = !line.empty() && (IsDigit(line.front()) || line.front() == '[' || line.front() == 'c');
    if (!mayBeMore || BeginsWithPacket(line)) return line;
    if (IsCsvRow(line) || line.starts_with("chan,utime,")) return made = PacketOfCsvRow(line);
    auto packet = line;
    for (int tags = 0; tags < 2; ++tags) packet = BehindMoment(BehindTag(packet)); // a moment and a port, in any order
    return BeginsWithPacket(packet) ? packet : line;
}

} // namespace halvern
