// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

/// The filter for one kind of symbol: lists and map show only the stations that have it, and objects.
namespace halvern {

/// Shows `JustSym`; its menu item stays off as long as the form is up.
void OpenSymbolFilter(Halvern& halvern);

/// Takes the chosen kind. The working state is put aside at the first filter, and the raw packets are played again;
/// with "All" it comes back.
void TakeSymbolFilter(Halvern& halvern);

} // namespace halvern
