// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

/// Marks that the operator sets on stations, in column 10 of their rows: an alarm when a station moves, a station that
/// the map follows, and stations that he does not want to see.
namespace halvern {

/// Opens `PosAlarmFrm` for the alarm, or, where there is no station yet, says how to get some.
void OpenAlarm(Halvern& halvern);
/// Opens the same form for taking stations off the map.
void OpenDelete(Halvern& halvern);
/// Marks, unmarks or takes off the selected stations, but for the own one and those that are gone, and closes.
void MarkStations(Halvern& halvern);

/// Opens `PosTrackFrm`, or says how to get stations.
void OpenTrack(Halvern& halvern);
/// Lets the map follow the selected station, or follow it no more, and closes.
void TrackStation(Halvern& halvern);

} // namespace halvern
