// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

/// The pointer on the map. Gestures work in zoom-and-pan mode, which is when the pointer of `Map1` is the cross-hair:
/// a click recentres, a dragged box goes one step closer to the middle of the box, a click of the secondary button
/// recentres and goes one step away. x is longitude, west positive, y latitude.
namespace halvern {

/// Is the map in zoom-and-pan mode?
bool PanMode(const Halvern& halvern);

/// In zoom-and-pan mode: the place is the new centre; the primary button begins a drag, the secondary one steps away.
/// Degrees, north and west positive.
void MapMouseDown(Halvern& halvern, MouseButton button, double x, double y);
/// Shows the position in `StatusBar2`, in any mode, and draws the box of a drag.
void MapMouseMove(Halvern& halvern, double x, double y);
/// Goes to the view that the gesture asks for: of a drag the middle of its box, a step closer.
void MapMouseUp(Halvern& halvern, MouseButton button, double x, double y);

/// Ends the drag that has begun, back at the view from which it began, or else the zoom-and-pan mode.
void EndGesture(Halvern& halvern);

/// The pointer on the picture or the label of a station; `index` is its row in `PosLst`. In zoom-and-pan mode these
/// stand for the map at the station's own place; out of it the secondary button opens the pop-up menu, which a window
/// shows at its pointer when `Pop1Menu` is clicked.
/// @throws RuntimeFailure where there is no such station
void SymbolMouseDown(Halvern& halvern, int index, MouseButton button);
void SymbolMouseMove(Halvern& halvern, int index);
void SymbolMouseUp(Halvern& halvern, int index, MouseButton button);

/// Makes a station the one that the items of the pop-up menu are about; they are shown as they fit it.
void TurnMenuTo(Halvern& halvern, int index);

} // namespace halvern
