// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

namespace halvern {

/// Brings the program up: loads the main window, shows it, and runs its first activation (settings, first run, map).
void StartProgram(Halvern& halvern);

/// Shows or hides child window 1 to 10, with its menu and its check mark.
void ToggleWindow(Halvern& halvern, int window);

/// Closes the ports and files and unloads every form; afterwards `Engine.Ended` is set.
void EndProgram(Halvern& halvern);

} // namespace halvern
