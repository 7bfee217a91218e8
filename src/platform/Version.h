// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace halvern {

/// The program's version, such as "1.30". It stands in CMakeLists.txt alone.
std::string ProgramVersion();

} // namespace halvern
