// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "state/Halvern.h"

/// The packet log: while it runs, every raw row goes into a file as well, as soon as it is filed.
namespace halvern {

/// Files a raw row, and logs it while the log is open. A log that can't be written is closed, and that is told once.
void FileRaw(Halvern& halvern, const std::string& row);

/// Closes the log and gives its menu item back what it said before.
void StopLog(Halvern& halvern);

} // namespace halvern
