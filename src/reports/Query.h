// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

namespace halvern {

/// Opens `QueryFrm` with the stations that can be asked: those whose reports say that they take messages.
void OpenQuery(Halvern& halvern);

/// Sends the chosen query by radio and by PSK63, and closes. Source: APRS protocol reference, chapter 15.
void SendQuery(Halvern& halvern);

} // namespace halvern
