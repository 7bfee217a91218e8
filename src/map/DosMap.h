// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "state/Halvern.h"

namespace halvern {

/// The full path of the line map that fits the present view, or an empty text where the list has none.
///
/// Without the map of the world it goes to the view of the USA first. Without the last map or without the list it
/// ends the program: then `Engine.Ended` is set and the caller stops.
std::string ChooseDosMap(Halvern& halvern);

/// Draws a line map on both surfaces, the visible one and its twin, and lays the stations out anew.
///
/// @return "AOK"; an empty text where there is no such file or its format is unknown; "ERROR" for a damaged file
std::string DrawDosMap(Halvern& halvern, const std::string& path);

/// Draws the line map that fits the view; where that fails, the map of the USA. What the operator is told differs
/// between a redraw and the first map of a run.
enum class DosMapTexts { Redraw, FirstActivation };
void ShowDosMap(Halvern& halvern, DosMapTexts texts);

} // namespace halvern
