// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

/// Stations that have not been heard for two hours leave the map.
namespace halvern {

/// `NetDecayTmr` has run out: a minute more with a port open. Every fourth time the stations are looked through, by
/// hour and minute of the clock alone; one that is retired is killed in its row, and its raw rows go. Rows of reports
/// with a time of their own, and objects, stay.
void NetDecayTick(Halvern& halvern);

} // namespace halvern
