// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "state/Halvern.h"

/// One TCP connection to a server of the APRS Internet system. It logs in once and never reconnects by itself.
namespace halvern {

/// Opens the port, or closes it where it is checked as open.
void OpenCloseInternet(Halvern& halvern);

/// A line has come in. The first one of a connection is the greeting; the login is the answer to it.
void ReceiveFromInternet(Halvern& halvern);

/// Writes an own packet as a line that says it was put in here, if the port is connected.
void SendToInternet(Halvern& halvern, std::string_view payload);

} // namespace halvern
