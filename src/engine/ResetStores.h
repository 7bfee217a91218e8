// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "state/Halvern.h"

namespace halvern {

/// The one function that empties the stores; it then puts the own station back in as row 0.
///
/// @param caller  "ImportLog", "Search1", "RestoreMenu": the raw rows and the heard counts stay; "JustOk": messages
///                and objects stay too; any other word: everything goes
void ResetStores(Halvern& halvern, std::string_view caller);

/// The same at a store's limit, which nobody asked for: a notice says so.
/// @param limit  how much the stores hold, "32,000 stations"
void StartStoresAgain(Halvern& halvern, std::string_view caller, const std::string& limit);

} // namespace halvern
