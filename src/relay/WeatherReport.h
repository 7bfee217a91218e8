// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "state/Halvern.h"

namespace halvern {

/// Where the station's own weather comes from.
enum class WeatherSource { Port, File };

/// Sends a position with the weather behind it by every open port, and hands it to the engine. The symbol is a weather
/// station's, whatever the station's own is.
///
/// @param weather  from the wind's direction on
void ReportWeather(Halvern& halvern, WeatherSource source, const std::string& weather);

} // namespace halvern
