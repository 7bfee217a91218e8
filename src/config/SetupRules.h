// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "state/Halvern.h"

/// What the setup form checks before its values count.
namespace halvern {

/// The alias of a station that digipeats for nobody: a text that no path holds.
inline constexpr const char* NoAlias = "1234567890";
inline constexpr const char* FillInAlias = "WIDE1-1";

/// What is wrong with a setting, in the words that the operator gets, and where it stands; both empty for nothing.
struct SettingFault {
    std::string words;
    Control* field = nullptr;
};

/// The first thing that is wrong with the station's settings.
SettingFault SetupFault(Halvern& halvern);

/// Tells the operator the first thing that is wrong. @return "OK" or "NOT OK".
std::string ValidateSetup(Halvern& halvern);

/// Tells the operator what is wrong with one field of a position. @return "OK" or "NOT OK".
std::string ValidatePositionField(Halvern& halvern, std::string_view text, std::string_view name);

/// The rules that the OK button has for the ports. A conflict of the GPS switches the GPS off again.
///
/// @return false where the operator was told about a conflict
bool PortsAgree(Halvern& halvern);

/// The two of those rules that the Save button asks, which switch nothing off.
bool PortsAgreeForSaving(Halvern& halvern);

/// Own call and alias as the form's fields have them now.
void TakeOwnCallAndAlias(Halvern& halvern);

} // namespace halvern
