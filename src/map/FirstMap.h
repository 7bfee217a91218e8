// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

namespace halvern {

/// The first activation of the map window: draws the chosen map and feeds the own position and status to the stores.
/// Later calls do nothing.
void FirstMapActivation(Halvern& halvern);

} // namespace halvern
