// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

/// Looking a station up by its call. `FindCall` of the map's state is the call sought, as the stores key it.
namespace halvern {

/// Asks for a call and shows what is known of it. "CALL-*" offers every SSID of the call in `FindFoundFrm` first.
void FindCallSign(Halvern& halvern);

/// Fills `FindFoundFrm` with the calls that begin as the one sought does before its "-".
void ListFound(Halvern& halvern);
/// Takes the picked call of `FindFoundFrm` for the one sought, closes and shows it. Nothing picked does nothing.
void PickFound(Halvern& halvern);

/// Fills `FindFrm` with what the stores hold of the call sought.
void ShowFound(Halvern& halvern);
/// Centres the map on the call sought, at the second closest range.
void GoToFound(Halvern& halvern);

} // namespace halvern
