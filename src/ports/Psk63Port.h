// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

/// A PSK63 modem program, by TCP: APRS on HF. It speaks one of two dialects, see transmit/Psk63Send.h.
namespace halvern {

/// Opens the port, or closes it where it is checked as open.
void OpenClosePsk63(Halvern& halvern);

/// A character or a line has come in. What the station has heard of itself is shown and goes no further.
///
/// When an engine has sent what it was given, its window still shows that. Clearing it is left to its operator:
/// pressing keys in another program's window has no way that works on every desktop.
void ReceiveFromPsk63(Halvern& halvern);

/// The modem program has gone: that is told, and the port closes.
void Psk63HungUp(Halvern& halvern);

} // namespace halvern
