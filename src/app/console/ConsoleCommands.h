// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/console/ConsoleLine.h"
#include "app/console/ConsoleSession.h"

namespace halvern {

/// Carries out one line: looks its first word up in the table of commands.
///
/// @throws ConsoleError when the line can't be carried out; then nothing has changed
void CarryOutCommand(ConsoleSession& session, ConsoleLine& line);

} // namespace halvern
