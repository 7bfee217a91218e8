// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

namespace halvern {

/// Works out the frame from the range and the centre, clears and rescales both surfaces and, when `MapSyncPending`
/// is set, selects the ladder step, which draws the map.
void MapSetGeometry(Halvern& halvern);

/// Keeps the present view as the previous one and goes to another. Degrees, west positive; range in nautical miles.
void GoToView(Halvern& halvern, float latitude, float longitude, double range);

} // namespace halvern
