// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace halvern {

/// Which device file stands behind "Com1" to "Com16".
///
/// One rule: a line "Com3 /dev/ttyUSB0" in `comports.txt` pins a number to a device; the serial devices that are
/// found and not pinned take the numbers that are left, in the order of their names (ttyUSB2 before ttyUSB10).
///
/// @param pins   the bytes of comports.txt; lines that say something else are passed over
/// @param found  device files of this machine, in any order
std::map<int, std::string> AssignComPorts(std::string_view pins, std::vector<std::string> found);

/// The rule with this machine's devices and the file in the application directory.
std::map<int, std::string> ComPortsOf(const std::string& applicationFolder);

} // namespace halvern
