// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "MapFile.h"

#include <array>

namespace halvern::mapmaker {

/// How the maps for one run of range steps are laid out and what they show.
struct Level {
    char letter; ///< first letter of the files' names
    int widest;  ///< the largest range step, nautical miles
    int narrowest;
    double cellLat;        ///< degrees between rows of centres; divides 180
    double cellLon;        ///< degrees between centres of a row; divides 360
    bool fewerPoleward;    ///< rows nearer a pole have fewer centres, so that cells stay as wide on the ground
    int unitsPerDegree;    ///< the precision to reach; a frame too large for it in LineFormat is written as ASCII
    double tolerance;      ///< degrees of latitude by which a line may be off
    double smallestIsland; ///< square kilometres
    double smallestLake;   ///< square kilometres
    int smallestRiver;     ///< the last rank shown; -1 none
    double smallestState;  ///< first-level borders: square kilometres of the country's mean area
    double smallestCounty; ///< the same for counties
    double gridLat;        ///< degrees between parallels
    double
        gridLon; ///< degrees between meridians at the equator; every view of the narrowest step holds one line or more
    double seaGridLat; ///< the same for cells without any line, which share one map; 0: none is shared
    double seaGridLon;
};

inline constexpr double Minute = 1 / 60.0;
inline constexpr double None = 1e9; ///< no area is so large

/// From the widest steps to the narrowest.
inline constexpr std::array<Level, 5> Levels{{
    {'e', 1024, 1024, 30, 60, true, 0, 0.06, 200, 2500, 1, 15000, None, 10, 10, 0, 0},
    {'d', 512, 512, 30, 60, true, 0, 0.028, 40, 500, 1, 4000, None, 5, 5, 0, 0},
    {'c', 256, 128, 20, 40, true, 0, 0.014, 4, 60, 2, 0, 1000, 2, 2, 2, 2},
    {'b', 64, 32, 6, 12, false, 0, 0.0045, 1, 10, 3, 0, 0, 0.5, 0.5, 0.5, 0.5},
    {'a', 16, 1, 4, 8, false, 0, 0.0022, 0.2, 1, 4, 0, 0, 5 * Minute, 2.5 * Minute, 10 * Minute, 2.5 * Minute},
}};

/// A map of the whole globe, or one that isn't chosen by the list.
struct SingleMap {
    const char* file;
    Box frame;
    Level lines;
};

inline constexpr std::array<SingleMap, 3> SingleMaps{{
    {"world.map",
     {90, 360, -90, -360},
     {' ', 8000, 4096, 0, 0, false, 30, 0.08, 1500, 8000, 0, None, None, 30, 30, 0, 0}},
    {"globe.map",
     {90, 360, -90, -360},
     {' ', 2048, 2048, 0, 0, false, 30, 0.07, 800, 5000, 0, 100000, None, 15, 15, 0, 0}},
    {"usa.map", {57, 128, 20, 64}, {' ', 1024, 1024, 0, 0, false, 200, 0.015, 30, 200, 2, 12000, None, 10, 10, 0, 0}},
}};

} // namespace halvern::mapmaker
