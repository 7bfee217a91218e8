// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "protocol/Fix.h"
#include "state/Halvern.h"

/// The station's own position and status: fast at first, then at a rate that follows from the length of the path.
namespace halvern {

/// `Timer2` has run out: sends what is due and sets the next interval. The interval is the state of the schedule: 1,
/// 8000, 16000, 32000, then 60000 ms, at which every `BeaconRate`th minute has a beacon.
///
/// A weather symbol or a bad path ends in a timer that stays off.
void BeaconTick(Halvern& halvern);

/// Sends what a GPS tells, and the status, on radio and PSK63, in the place of the schedule. There is no range
/// information in it: a station that moves has none.
void BeaconFix(Halvern& halvern, const Fix& fix);

/// A new period of beacons, fast at first; none where the GPS or a weather source sends the position in their place.
void StartBeacons(Halvern& halvern);

/// Presses the items of the main ports that are open: the Internet's, the sound card's, PSK63's, the TNC's.
/// @param psk63  false: the PSK63 port stays as it is
void CloseMainPorts(MainForm& main, bool psk63);

/// Sends the position in row 0 of the store at once, on every open port, without touching the schedule.
void BeaconNow(Halvern& halvern);

} // namespace halvern
