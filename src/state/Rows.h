// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/Failure.h"
#include "platform/Text.h"

/// The columns of the store rows, 1-based, as docs/formats.md tells them. Reader and writer both use these.
namespace halvern {

/// A field of a row by its first column, from 1, and its width.
struct ColumnRange {
    std::size_t first;
    std::size_t count;
    std::string_view operator()(std::string_view row) const { return Columns(row, first, count); }
};

inline constexpr std::size_t ToTheEnd = std::string_view::npos;

/// What every row of a station has: its call, and in column 10 a blank or a mark.
namespace stationRow {
inline constexpr ColumnRange Call{1, 9};
inline constexpr std::size_t State = 10;
inline constexpr ColumnRange Report{11, ToTheEnd};
} // namespace stationRow

/// Rows of `PosLst`. A report of any kind is stored with a stamp, so the columns are always the same.
namespace positionRow {
using stationRow::Call;
using stationRow::Report;
using stationRow::State;
inline constexpr std::size_t Type = 11;
inline constexpr ColumnRange Stamp{12, 6}; ///< ddhhmm, UTC
inline constexpr ColumnRange Day{12, 2};
inline constexpr ColumnRange HourMinute{14, 4};
inline constexpr ColumnRange Latitude{19, 8};
inline constexpr std::size_t Table = 27;
inline constexpr ColumnRange Longitude{28, 9};
inline constexpr std::size_t Code = 37;
inline constexpr ColumnRange FromLatitude{19, ToTheEnd};
inline constexpr ColumnRange Comment{38, ToTheEnd};
} // namespace positionRow

/// Message rows, "SOURCE>ADDRESSEE:text": the text in which rows that differ in case alone are the same.
inline std::string SameText(std::string_view row)
{
    return UpperCase(row);
}
/// The source in that text.
inline std::string SameSource(std::string_view row)
{
    return UpperCase(row.substr(0, row.find('>')));
}

/// Marks in column 10 of a position row.
namespace mark {
inline constexpr char None = ' ';
inline constexpr char Alarm = 'A';
inline constexpr char Track = 'T';
inline constexpr char Killed = 'X';
inline constexpr char Deleted = 'D';
} // namespace mark

/// Was the station of a row killed, or taken off the map by the operator?
inline bool IsGone(std::string_view row)
{
    const char state = ColumnAt(row, stationRow::State);
    return state == mark::Killed || state == mark::Deleted;
}

/// A row with another mark in column 10. @throws RuntimeFailure where the row has no such column.
inline std::string WithMark(std::string row, char newMark)
{
    ElementOf(row, stationRow::State - 1) = newMark;
    return row;
}

/// Weather in the raw packets: columns of the information field of a position report, ours or another's.
namespace weatherRow {
inline constexpr std::size_t Code = 20;        ///< `_` in a report without a time
inline constexpr std::size_t StampedCode = 27; ///< `_` in a report with a time; so these are where ours has them:
inline constexpr ColumnRange StampedDirection{28, 3}, StampedSpeed{32, 3};
inline constexpr std::size_t ArrivalLength = 8; ///< ddhhmmss, UTC, behind the whole line
} // namespace weatherRow

/// Data records of an Ultimeter, hexadecimal.
namespace ultimeterRow {
inline constexpr ColumnRange Fields{6, ToTheEnd};
inline constexpr ColumnRange WindPeak{6, 4}, WindAverage{54, 4}; ///< tenths of a kilometre an hour
inline constexpr ColumnRange WindDirection{12, 2};               ///< sent as it is
inline constexpr ColumnRange Temperature{14, 4};                 ///< tenths of a degree Fahrenheit, signed
inline constexpr ColumnRange RainTotal{18, 4}, RainToday{50, 4}; ///< hundredths of an inch
inline constexpr ColumnRange Barometer{22, 4};                   ///< tenths of a millibar
inline constexpr ColumnRange Humidity{38, 4};                    ///< tenths of a per cent
} // namespace ultimeterRow

/// Packet records of a Peet Brothers station, hexadecimal.
namespace peetRow {
inline constexpr ColumnRange WindDirection{2, 1}; ///< an index into sixteen points
inline constexpr ColumnRange WindSpeed{3, 2};     ///< miles an hour behind `*`, kilometres behind `#`
inline constexpr ColumnRange Temperature{5, 2};   ///< degrees Fahrenheit, 56 more than it is
} // namespace peetRow

/// Weather reports without a position, as weather programs write them.
namespace positionlessRow {
inline constexpr std::size_t DirectionMark = 10; ///< `c`
inline constexpr ColumnRange FromDirection{11, ToTheEnd};
inline constexpr ColumnRange SpeedMark{12, 3}; ///< `s` stands in one of these
} // namespace positionlessRow

/// Rows of `HeardOnRfLst`.
namespace heardOnRfRow {
inline constexpr ColumnRange Hops{10, ToTheEnd};
}

/// Rows of `DecisionLst` and `GateLst`.
namespace gateRow {
inline constexpr ColumnRange Time{1, 11}; ///< dd/hh:mm:ss, UTC
inline constexpr ColumnRange Way{13, 11};
inline constexpr ColumnRange Call{25, 9}; ///< the sender
inline constexpr ColumnRange Name{35, 9}; ///< of a message the addressee, of an object the name
inline constexpr ColumnRange Outcome{45, ToTheEnd};
} // namespace gateRow

/// Rows of `NoticeLst`.
namespace noticeRow {
inline constexpr ColumnRange Time{1, 19}; ///< "YYYY-MM-DD hh:mm:ss", UTC, when it was told last
inline constexpr ColumnRange Times{21, 6};
inline constexpr ColumnRange About{28, 18}; ///< a call, or what port or timer; the last one that it was told of
inline constexpr std::size_t Kind = 47;     ///< `!` a failure, `i` an information, or a blank
inline constexpr ColumnRange Text{49, ToTheEnd};
inline constexpr ColumnRange Saying{Kind, ToTheEnd}; ///< what makes it one notice
} // namespace noticeRow

/// Records of `OutMsg`, and own objects: the name stands in the same columns.
namespace queuedRow {
inline constexpr ColumnRange Name{2, 9};
}

} // namespace halvern
