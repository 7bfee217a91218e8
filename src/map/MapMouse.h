// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

namespace halvern {

/// The pointer on the picture or the label of a station; `index` is its row in `PosLst`.
void SymbolMouseDown(Halvern& halvern, int index, MouseButton button);
void SymbolMouseMove(Halvern& halvern, int index);
void SymbolMouseUp(Halvern& halvern, int index, MouseButton button);

} // namespace halvern
