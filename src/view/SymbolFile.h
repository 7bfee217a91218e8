// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace halvern {

/// The picture file of an APRS symbol: table "/", "\" or an overlay character, and the symbol code.
///
/// @return the full path below the program folder, upper case but for that folder; "NG" for a code that the table
///         does not have; an empty text for a character that is no table. The disk is not asked.
std::string SymbolFileName(const std::string& programFolder, int tableCode, int symbolCode);

} // namespace halvern
