// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

namespace halvern {

/// The operator selected a step of the ladder, or code has set a new view: takes over the range of the step unless code
/// has set it already, and draws the map of the chosen kind. The one place where a line map is drawn anew.
void RangeSelected(Halvern& halvern);

} // namespace halvern
