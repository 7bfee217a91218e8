// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

namespace halvern {

/// Connects every event to the function that handles it.
void ConnectHandlers(Halvern& halvern);

} // namespace halvern
