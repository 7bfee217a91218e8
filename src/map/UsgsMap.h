// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

namespace halvern {

/// Draws the tiles of the country that the view needs, on both surfaces. The pointer is the hourglass meanwhile.
///
/// @throws RuntimeFailure where a tile is missing; what was drawn before stays
void DrawUsgsMap(Halvern& halvern);

} // namespace halvern
