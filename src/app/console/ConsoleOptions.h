// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <span>
#include <string>

namespace halvern {

/// What the command line of a console says.
struct ConsoleOptions {
    bool simulate = false;
    bool windows = false;
    std::string directory;  ///< empty: the operator's own
    std::optional<int> end; ///< the program is over with this status: it was asked for help, or not understood
};

/// Reads a command line, its program's name in front. What is to be said of it goes to the standard streams.
ConsoleOptions ReadConsoleOptions(std::span<char*> words);

} // namespace halvern
