// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "config/IniText.h"
#include "state/Halvern.h"

/// The settings: one table that the file's writer and reader walk, and the setup form with its Cancel.
namespace halvern {

/// What a setting is for, as a sum.
enum SettingMark : unsigned {
    InFile = 1,     ///< a line of `Halvern.INI`, by its place in the table
    Cancelled = 2,  ///< Cancel of the setup form puts it back
    Beacon = 4,     ///< own packets show it, or it decides how they go out: a change starts the beacons
    Early = 8,      ///< goes into its control while the main window loads, the others at its activation
    AfterTrue = 16, ///< there is such a line only where the line before says "True"
};

/// One setting. It has one line of the file, or a list of them behind their count.
struct Setting {
    std::string name; ///< as a message names it
    unsigned marks = InFile;
    LineKind kind = LineKind::Field;
    std::function<SettingValue()> get;
    std::function<void(const SettingValue&)> set; ///< takes what `get` gives, and what the file has of this kind
    int least = -32768, most = 32767;             ///< bounds of an integer in the file

    const List* list = nullptr; ///< the lines are a count and the entries of this list
    int builtIn = 0;            ///< its first entries, which are never written; the line before is the list's index

    /// Whether the setting bears a mark.
    bool Has(SettingMark mark) const { return (marks & mark) != 0; }
};
using SettingTable = std::vector<Setting>;

/// All settings over the controls of a program: those of the file in its order, a drive before its folder, a folder
/// before the file in it; then those that no file keeps.
SettingTable SettingsTable(Halvern& halvern);

/// The bytes of a file with the present values.
std::string WriteIni(const SettingTable& table);

/// Reads a whole file and touches no control. @return a value for each setting of the table. @throws IniFault.
std::vector<SettingValue> ReadIni(const SettingTable& table, std::string_view bytes);

/// Puts the early, or the other, values of a file into their controls: the lists' entries before their indices.
void ApplyIni(const SettingTable& table, const std::vector<SettingValue>& values, bool early);

/// Takes down the present values of the setup form.
void RecordSetUp(Halvern& halvern);

/// Takes down that the file has the present values of the setup form.
void RecordSaved(Halvern& halvern);
/// Whether a new start would find the setup form as it stands.
bool SettingsSaved(Halvern& halvern);

/// Whether a value that own packets show, or that decides how they go out, differs from what was recorded.
bool BeaconDataChanged(Halvern& halvern);

/// Puts every recorded value back. Lists keep the entries that were added or taken away meanwhile.
void RestoreSetUp(Halvern& halvern);

} // namespace halvern
