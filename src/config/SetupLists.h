// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

/// The lists of the setup form that the operator keeps himself: paths, message groups, and whom the i-gate serves.
namespace halvern {

/// Notes the chosen entry of `UnPath`.
void ChoosePath(SetUpForm& setUp);
/// Goes back to that entry, with a word to the operator, unless what he typed is an entry.
void RefuseTypedPath(Halvern& halvern);
/// Asks for a path by its dialog. At most 20.
void AddPath(Halvern& halvern);
/// Takes the selected path out; the built-in ones stay.
void DeletePath(Halvern& halvern);

/// Asks for a message group, which is raised to upper case. At most 20.
void AddGroup(Halvern& halvern);
/// Asks for what the selected group shall be.
void ChangeGroup(Halvern& halvern);
/// Takes the selected group out.
void DeleteGroup(Halvern& halvern);

/// Asks for a call, as it is typed, that the gate lets through. Each stands there once.
void AddBuddy(Halvern& halvern);
/// The same for senders of weather messages.
void AddWeatherCaller(Halvern& halvern);
/// Takes the selected entry out and selects the last one that remains.
void DeleteCaller(List& callers);

} // namespace halvern
