// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

/// A GPS receiver on a serial line. The line is open only while a block of its output is wanted: once at each send
/// time, up to the block's end.
namespace halvern {

/// Opens the GPS port, or closes it where it is checked as open. While it is open the beacons' own schedule rests. With
/// no radio port left it closes for good: the receiver counts as not attached any more.
void OpenCloseGps(Halvern& halvern);

/// `GpsTimer` has run out: opens the line if a send time has come. A line that does not open ends the port, and so does
/// one that is still open, because the receiver has not filled a block since the last send time.
void OpenGpsWhenDue(Halvern& halvern);

/// A block has come in: closes the line and sends the position that the chosen sentence tells. A block without that
/// sentence ends the port; one without a fix sends nothing.
void ReceiveFromGps(Halvern& halvern, int eventCode);

} // namespace halvern
