// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

/// A sound card packet engine: the same KISS bytes as a TNC's, by TCP on this machine.
namespace halvern {

/// Opens the port, or closes it where it is checked as open.
void OpenCloseSound(Halvern& halvern);

/// Bytes have come in.
void ReceiveFromSound(Halvern& halvern);

} // namespace halvern
