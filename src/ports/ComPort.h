// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "state/Halvern.h"

/// What the serial ports of the station have in common.
namespace halvern {

/// Sets a port as the setup form says, "Com3" and "4800": 8 data bits, no parity, one stop bit.
/// @param digits  how many characters of the number count
void SetLine(SerialPort& port, const List& number, const List& speed, std::size_t digits = std::string_view::npos);

/// No more notifications, and nothing waits, in or out.
void Silence(SerialPort& port);

/// Opens a port that is set, to notify of each arrival, and sets its check mark. What came in before is gone. A failure
/// is told, and leaves the port closed and the mark clear.
/// @return false for a failure
bool OpenComPort(Halvern& halvern, SerialPort& port, MenuItem& mark);

} // namespace halvern
