// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

namespace halvern {

/// Empties the heard grid down to its header and the own station, the first column opening now.
void ClearHeardGrid(Halvern& halvern);

/// Counts the line in hand for its station and this UTC hour; the last step of every accepted line. Nothing is counted
/// while the stores show a playback.
void CountHeard(Halvern& halvern);

} // namespace halvern
