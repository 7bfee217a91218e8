// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/MapMouse.h"

namespace halvern {

void SymbolMouseDown(Halvern&, int, MouseButton) {}
void SymbolMouseMove(Halvern&, int) {}
void SymbolMouseUp(Halvern&, int, MouseButton) {}

} // namespace halvern
