// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "map/MapLines.h"

/// The bytes of a line map and of the list of line maps. Nothing here reads past the bytes that it was given, and
/// damage is told in-band.
namespace halvern {

enum class MapFileEnd {
    Marker,        ///< the file was read up to its end marker
    UnknownFormat, ///< its format word is neither "ASCII" nor "LineFormat"
    Damaged        ///< an item is missing or is no number of its kind; points before it were given out
};

/// Reads a line map.
///
/// Items stand between commas or line ends; blanks around them and quotes at both their ends don't count. A number is
/// the whole item, or all of it up to a blank. Eight head lines: latitude of the top edge, longitude of the left edge,
/// file units a degree, four numbers without use, and the format word. "ASCII": pairs of offsets, where 0,0 begins a
/// polyline with its colour and name and 0,-1 is the end. "LineFormat": a colour, then three characters a point to the
/// line's end; colour -1 is the end.
///
/// @param format  gets the format word
MapFileEnd ReadMapLines(std::string_view bytes, MapLines& lines, std::string& format);

/// The map of a list that lies nearest to a view.
///
/// The list is records of 23 bytes. Records 1 to 12 are the steps of the ladder from 2048 down: where the maps of the
/// step begin and how many there are. The others are maps: name 8, centre DDffffN and DDDffffW with four decimals.
/// The distance is in plain degrees; of two as near the first wins.
///
/// @param row  1 to 12, the step of the ladder
/// @return the name without trailing blanks, or an empty text where the list holds no map for this step, or one that
///         would lie outside the folder of maps
std::string NearestMap(std::string_view list, int row, float latitude, float longitude);

} // namespace halvern
