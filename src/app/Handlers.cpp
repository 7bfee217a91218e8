// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Handlers.h"

namespace halvern {

void ConnectHandlers(Halvern& halvern)
{
    halvern.All.OnFailure = [&halvern](const RuntimeFailure& failure) {
        halvern.Tell(Icon::Critical, "Error # " + std::to_string(failure.Number()) + " " + failure.what());
    };
}

} // namespace halvern
