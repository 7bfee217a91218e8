// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/WeatherPort.h"

namespace halvern {

void OpenCloseWeather(Halvern&) {}

} // namespace halvern
