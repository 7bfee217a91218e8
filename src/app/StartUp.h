// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

namespace halvern {

/// Brings the program up: loads the main window, shows it, and runs its first activation (settings, first run, map).
/// `Engine.Ended` is set where it can't go on.
void StartProgram(Halvern& halvern);

/// The main window is loaded: the settings file is read, the map's selectors and the heard grid are prepared.
void LoadMainWindow(Halvern& halvern);

/// The main window is activated. At the first time the settings go into their controls and the map comes up, or, on a
/// first run, the setup form; later nothing happens.
void ActivateMainWindow(Halvern& halvern);

/// Shows or hides child window 1 to 10, with its menu and its check mark.
void ToggleWindow(Halvern& halvern, int window);

/// Closes the ports and files and unloads every form; afterwards `Engine.Ended` is set.
void EndProgram(Halvern& halvern);

} // namespace halvern
