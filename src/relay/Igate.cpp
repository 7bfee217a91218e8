// SPDX-License-Identifier: GPL-3.0-or-later
#include "relay/Igate.h"

namespace halvern {

void RfGateStep(Halvern&, const std::string&) {}

void InternetGateStep(Halvern&, const std::string&) {}

} // namespace halvern
