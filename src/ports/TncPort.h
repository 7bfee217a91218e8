// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

/// A hardware TNC in KISS mode on a serial line. No command is ever sent to it: the operator puts it into KISS mode.
namespace halvern {

/// Opens the port, or closes it where it is checked as open.
void OpenCloseTnc(Halvern& halvern);

/// A notification of the port; only received bytes are of interest.
void ReceiveFromTnc(Halvern& halvern, int eventCode);

} // namespace halvern
