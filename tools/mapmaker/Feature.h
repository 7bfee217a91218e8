// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Geometry.h"

namespace halvern::mapmaker {

/// What a line of the world data stands for.
enum class Kind { Coast, Lake, River, Country, FirstLevel, County, Grid };

/// A line of the world data with what decides from which step on it is drawn.
struct Feature {
    Kind what = Kind::Coast;
    int rank = 0;    ///< rivers: 0 widest to 10 smallest; other kinds 0
    double area = 0; ///< square kilometres: of coasts and lakes what the whole ring encloses, of first-level
                     ///< borders and counties the mean of their country's areas; other kinds 0
    Path vertices;
};

} // namespace halvern::mapmaker
