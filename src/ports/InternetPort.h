// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

/// One TCP connection to a server of the APRS Internet system. It logs in once and never reconnects by itself.
namespace halvern {

/// Opens the port, or closes it where it is checked as open.
void OpenCloseInternet(Halvern& halvern);

/// A line has come in. The first one of a connection is the greeting; the login is the answer to it.
void ReceiveFromInternet(Halvern& halvern);

} // namespace halvern
