// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/FirstMap.h"

namespace halvern {

void FirstMapActivation(Halvern&) {}

} // namespace halvern
