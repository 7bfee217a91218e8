// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

/// The setup form as a whole: its loading and activation, and the buttons under its tabs.
namespace halvern {

/// Where the form comes up, whatever the settings file says: it always fits the screen there.
inline constexpr Place SetUpPlace{8490, 0, 0, 8205, 0};

/// The form is created, once a run: the groups of a new configuration, the folders, the servers.
void LoadSetUp(Halvern& halvern);

/// The form comes up: its values are recorded for Cancel, the UTC time is shown.
void ActivateSetUp(Halvern& halvern);

/// OK: checks, then makes the values count, hides the form and brings the map up. The form stays open at a fault.
void AcceptSetUp(Halvern& halvern);

/// Cancel: puts every recorded value back.
void CancelSetUp(Halvern& halvern);

/// The close box: the same as Cancel, and nothing at all while Cancel is not offered.
void CloseSetUp(Halvern& halvern);

} // namespace halvern
