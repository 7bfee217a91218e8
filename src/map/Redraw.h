// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

namespace halvern {

/// A step of the ladder was selected, by the operator or by code: takes over its range unless code has set it
/// already, and draws the map of the chosen kind. The one place where a line map is drawn anew.
void RangeSelected(Halvern& halvern);

} // namespace halvern
