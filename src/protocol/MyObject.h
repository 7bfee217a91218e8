// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "protocol/PositionField.h"
#include "state/Rows.h"

/// Records of `MyObjectLst`, the objects that the station sends: an object report ready for the air, "|", and the path
/// by which it goes. Reader and writer both use these.
///
///     ;LEADER   *092345z4903.50N/07201.75W>088/036in front|WIDE2-2
namespace halvern {

namespace myObjectRow {
inline constexpr ColumnRange Name = queuedRow::Name;
inline constexpr std::size_t Life = 11; ///< "*" for a live object, "_" for a killed one
using positionRow::Code;
using positionRow::Table;
inline constexpr std::size_t Tail =
    positionRow::Comment.first; ///< course and speed where it has them, then the comment
} // namespace myObjectRow

inline constexpr char LiveObject = '*';
inline constexpr char KilledObject = '_';

/// What the operator sets when he places an object.
struct ObjectPlace {
    PositionTexts position;
    int course = 0, speed = 0; ///< degrees, north 360, and knots; both 0 where the object stands still
    std::string comment;
};

/// An own object as its row in the store says it.
struct MyObject {
    std::string name;   ///< made to fit its 9 columns
    std::string symbol; ///< table or overlay character, and code
    ObjectPlace place;
    std::string path; ///< empty for none
};

/// A live object's record. A bar in the comment would begin the path, so the comment ends before it.
///
/// @param stamp  ddhhmm, UTC
std::string MyObjectRecord(const MyObject& object, std::string_view stamp);

/// The same object, killed.
std::string KilledRecord(std::string record);

/// The object of a record; a record that is too short gives empty texts.
MyObject ReadMyObject(std::string_view record);

/// The information field that goes out: the record up to the bar. A name or a symbol may hold a bar, so the one that
/// counts stands behind them.
std::string_view MyObjectInformation(std::string_view record);

/// What a row of `PosLst` says of another station's object. The call of its sender, at the end, is no comment.
ObjectPlace HeardObjectPlace(std::string_view row);

} // namespace halvern
