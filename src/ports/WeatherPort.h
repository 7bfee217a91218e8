// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

namespace halvern {

/// Opens the weather port, or closes it where it is checked as open. There is no weather port yet: nothing.
void OpenCloseWeather(Halvern& halvern);

} // namespace halvern
