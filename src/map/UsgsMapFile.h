// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string_view>

#include "map/MapLines.h"

/// Which tiles a view of the country needs, and what stands in one.
namespace halvern {

/// Regions from the first to the last; none where the last is below the first.
struct RegionSpan {
    int first = 0, last = 0;
};

/// The regions whose tiles are drawn for a view. How many are drawn goes by the range, not by what the view touches:
/// a wide view gets a sweep of regions, a close one at most those between its corners.
RegionSpan RegionsOf(const MapState& view);

/// The three layers for a range, in drawing order: boundaries at wide ranges, local roads at close ones.
std::array<std::string_view, 3> LayersOf(double range);

/// Draws the lines of a tile that lie strictly inside the view.
///
/// One line of text is one polyline: a digit for the colour, then points of 15 columns each, DDDffffW and DDffffN with
/// four decimals. A point outside is left out and does not lift the pen, so that a road which leaves the view and
/// comes back gets a chord. A point that is no number is left out too.
void ReadTileLines(std::string_view bytes, const ViewFrame& view, MapLines& lines);

} // namespace halvern
