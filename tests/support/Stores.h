// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "state/Halvern.h"

namespace halvern::test {

/// Everything that a packet leaves behind: the rows of all stores and the heard grid, each under its store's name.
std::vector<std::string> StoresOf(const Halvern& halvern);

} // namespace halvern::test
