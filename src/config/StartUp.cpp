// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/StartUp.h"

namespace halvern {

void StartProgram(Halvern&) {}
void ToggleWindow(Halvern&, int) {}
void EndProgram(Halvern&) {}

} // namespace halvern
