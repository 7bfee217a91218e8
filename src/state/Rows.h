// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/Text.h"

/// The columns of the store rows, 1-based, as docs/formats.md tells them. Reader and writer both use these.
namespace halvern {

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

/// A row with another mark in column 10.
inline std::string WithMark(std::string row, char newMark)
{
    row.at(stationRow::State - 1) = newMark;
    return row;
}

/// Records of `OutMsg`, and own objects: the name stands in the same columns.
namespace queuedRow {
inline constexpr ColumnRange Name{2, 9};
}

} // namespace halvern
