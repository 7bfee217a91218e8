// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Levels.h"

#include <string>
#include <vector>

namespace halvern::mapmaker {

/// A map's place in its level.
struct Cell {
    std::string name; ///< the level's letter and the north-west corner, 8 characters
    Vertex centre;
    Box frame; ///< covers every view of the level's widest step for which this centre is the nearest
};

/// How far a map reaches beyond the longitudes of its views' centres. Towards the poles a view grows wider without
/// bound: maps keep up with it as far as 80 degrees, and beyond as long as it stays moderate, but never past half a
/// turn to either side, where a view would begin to show the same places again.
double SideMargin(double range, double lat);

/// Lays the centres of a level over the globe. Nearness is counted as the map list's reader counts it: in plain
/// degrees, without a turn at the date line.
std::vector<Cell> LayCells(const Level& level);

} // namespace halvern::mapmaker
