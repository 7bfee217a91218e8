// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace halvern {

/// A text as the console writes it: in double quotes; every byte outside 0x20 to 0x7E, the quote and the backslash
/// escaped, `\r`, `\n`, `\t` by their letters, the rest as `\xHH`.
std::string ConsoleQuoted(std::string_view text);

/// Reads a quoted text that begins at `at`, and moves `at` behind it. @return nothing for a bad escape or no end.
std::optional<std::string> ConsoleUnquoted(std::string_view line, std::size_t& at);

} // namespace halvern
