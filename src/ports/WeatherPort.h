// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

/// The station's own weather: an Ultimeter on a serial line, or the file of a weather program (ports/WeatherFile.h).
/// While one of them runs, the position goes out with the weather reports, and the beacons are still.
namespace halvern {

/// Starts the source that the setup form says, or closes whichever runs.
void OpenCloseWeather(Halvern& halvern);

/// A notification of the port. Each whole record becomes a report; one that can't be read is dropped without a word.
void ReceiveFromWeather(Halvern& halvern, int eventCode);

} // namespace halvern
