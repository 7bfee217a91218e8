// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "state/Halvern.h"

namespace halvern {

/// What the i-gate does with a line heard on radio, after the engine has had it. There is no gate yet: nothing.
void RfGateStep(Halvern& halvern, const std::string& line);

/// What the i-gate does with a line from the Internet, after the engine has had it. There is no gate yet: nothing.
void InternetGateStep(Halvern& halvern, const std::string& line);

} // namespace halvern
