// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

namespace halvern {

/// Opens the GPS port, or closes it where it is checked as open. There is no GPS port yet: nothing.
void OpenCloseGps(Halvern& halvern);

} // namespace halvern
