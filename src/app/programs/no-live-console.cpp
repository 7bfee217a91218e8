// SPDX-License-Identifier: GPL-3.0-or-later
#include <cstdio>

#include "app/programs/LiveConsole.h"

namespace halvern {

int RunLive(int, char**, const ConsoleOptions&)
{
    std::fputs("This halvern-console was built without Qt and reaches no ports: start it with --simulate.\n", stderr);
    return 1;
}

} // namespace halvern
