// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Geometry.h"

#include <cstddef>
#include <filesystem>
#include <string_view>
#include <vector>

namespace halvern::mapmaker {

/// The two body formats of a map file. Ascii keeps any precision and costs some ten bytes a point, LineFormat costs
/// three bytes a point and divides the map into at most 3536 by 1768 units.
enum class BodyFormat { Ascii, LineFormat };

/// What a map file holds and how.
struct MapPlan {
    BodyFormat format = BodyFormat::Ascii;
    Box frame;              ///< the land and sea that the map covers
    int unitsPerDegree = 0; ///< precision of the Ascii format; LineFormat takes the best that the frame allows
    int widestStep = 0;     ///< the largest range step the map is meant for, nautical miles
    int narrowestStep = 0;  ///< the smallest
};

struct MapFigures {
    std::size_t points = 0;
    std::size_t bytes = 0;
};

/// The finest LineFormat scale for a frame, in units per degree; 0 when the frame is too large for the format.
int LineFormatScale(const Box& frame);

/// Writes `lines`, clipped to the plan's frame, as a map file. Lines 4 and 5 of the head hold the frame's bottom and
/// right edge, lines 6 and 7 the widest and the narrowest step. Throws std::runtime_error when the file can't be
/// written or the frame doesn't suit the format.
MapFigures WriteMap(const std::filesystem::path& file, const MapPlan& plan, const std::vector<DrawnLine>& lines);

/// A map file taken apart again.
struct MapContent {
    MapPlan plan;
    std::vector<DrawnLine> lines;
};

/// Reads a map that WriteMap wrote. Throws std::runtime_error with the file's name for anything else.
MapContent ReadMap(const std::filesystem::path& file);

} // namespace halvern::mapmaker
