// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/console/ConsoleOptions.h"

namespace halvern {

/// A console on the machine's own clock, ports and sockets. Built without those, it says so and nothing runs.
/// @return the exit status
int RunLive(int count, char** arguments, const ConsoleOptions& options);

} // namespace halvern
