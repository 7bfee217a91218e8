// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

/// The two files that survive a restart.
namespace halvern {

/// Reads `Halvern.INI`, if there is one: fonts, map view and kind of map go to their places at once, the other values
/// wait for TakeSettings. A file that can't be read whole is told to the operator and counts as none.
void ReadSettings(Halvern& halvern);

/// Puts the values that wait into their controls.
void TakeSettings(Halvern& halvern);

/// Reads `APRSDomain.INI`: the servers, the one that was chosen, its port and filter.
void ReadServers(Halvern& halvern);

/// The server's password: of the call sign once a configuration is loaded, before that "-1", which only listens.
void FillInPassword(Halvern& halvern);

/// The Save button: checks, writes both files, keeps three older copies of what it replaces.
void SaveSettings(Halvern& halvern);

} // namespace halvern
