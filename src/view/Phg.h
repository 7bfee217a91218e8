// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "state/Halvern.h"

/// Power, height, gain and direction of a station's antenna. Source: APRS protocol reference, chapter 7.
namespace halvern {

/// Power, antenna height, gain and direction, as a report tells them.
struct Phg {
    double power = 0;     ///< watts
    double height = 0;    ///< feet above the average terrain
    double gain = 0;      ///< as a factor, not in decibels
    double direction = 0; ///< degrees, 0 where it radiates all around
};

/// The four digits behind "PHG" in a row of `PosLst`, or nothing.
std::string_view SentPhg(std::string_view row);
/// @param directions  `PhgDirLst`, whose lines the fourth digit counts
/// @param digits      four of them
Phg ReadPhg(const List& directions, std::string_view digits);

/// Range circles for the stations from row `start` on. @param mode  0 fixed, 1 mobile
void PlotPhg(Halvern& halvern, int mode, int start);
/// Switches the circles of a menu item on or off. Circles that stand stay until the next map is drawn.
void TogglePhg(Halvern& halvern, MenuItem& item, int mode);

} // namespace halvern
