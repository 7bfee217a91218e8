// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

/// The lists of the setup form that the operator keeps himself: paths, message groups, and whom the i-gate serves.
namespace halvern {

/// An entry of `UnPath` was chosen, or something was typed, which is refused.
void ChoosePath(SetUpForm& setUp);
void RefuseTypedPath(Halvern& halvern);
void AddPath(Halvern& halvern);
void DeletePath(Halvern& halvern);

void AddGroup(Halvern& halvern);
void ChangeGroup(Halvern& halvern);
void DeleteGroup(Halvern& halvern);

void AddBuddy(Halvern& halvern);
void AddWeatherCaller(Halvern& halvern);
/// Takes the selected entry out and selects the last one that remains.
void DeleteCaller(List& callers);

} // namespace halvern
