// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "state/Halvern.h"

/// The working state is put aside while the stores show something else: a log, a history file, one kind of symbol.
/// Fourteen files in the application directory hold it; docs/formats.md tells them.
namespace halvern {

/// Puts the working state aside, unless it lies there already: what is kept is the state before the first view.
///
/// The stores stay as they are. The file of the positions, whose presence says that a state is kept, is written last,
/// so that a state is kept whole or not at all.
/// @return why it could not be kept, and no file is left then; or an empty text
std::string SnapshotState(Halvern& halvern);

/// Whether a state is kept.
bool SnapshotStands(const Halvern& halvern);

/// Reads the kept state back and takes its files away. The stores must have been emptied: rows are added to them.
///
/// @param stationsAlone  true where messages, objects and their timers were never taken away: those are left alone
/// @return what could not be read: files that are missing, rows that are damaged. All else is back.
std::vector<std::string> RestoreState(Halvern& halvern, bool stationsAlone = false);

/// The way back from a view: the kept state takes the place of what the stores show.
/// @throws RuntimeFailure where a part of it could not be read; all else is back
void RestoreView(Halvern& halvern);

} // namespace halvern
