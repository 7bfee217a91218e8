// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/ProcessPacket.h"

namespace halvern {

void ProcessPacket(Halvern&, std::string&, std::string_view) {}

} // namespace halvern
