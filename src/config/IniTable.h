// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "config/IniText.h"
#include "state/Halvern.h"

/// The settings file, line by line: one table that writer and reader both walk.
namespace halvern {

/// One line of the file, or one counted list of lines.
struct IniRow {
    std::string name; ///< as a message names the line
    LineKind kind = LineKind::Field;
    std::function<std::string()> get;
    std::function<void(const std::string&)> set;
    int least = -32768, most = 32767; ///< bounds of an integer

    List* list = nullptr;       ///< the lines are a count and entries of this list
    int builtIn = 0;            ///< its first entries, which are never written
    bool indexBefore = false;   ///< the line before the count is the list's index
    bool onlyAfterTrue = false; ///< there is such a line only where the line before says "True"
    bool early = false;         ///< goes into its control while the main window loads, the others at its activation
};
using IniTable = std::vector<IniRow>;

/// The values of a file, one element a row of the table: one text, or the entries of a list, or nothing for a line
/// that is not there.
using IniValues = std::vector<std::vector<std::string>>;

/// The table of `Halvern.INI` over the controls of a program.
IniTable SettingsTable(Halvern& halvern);

/// The bytes of a file with the present values.
std::string WriteIni(const IniTable& table);

/// Reads a whole file and touches no control. @throws IniFault.
IniValues ReadIni(const IniTable& table, std::string_view bytes);

/// Puts the early, or the other, values of a file into their controls: the lists' entries before their indices.
void ApplyIni(const IniTable& table, const IniValues& values, bool early);

} // namespace halvern
