// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "state/Halvern.h"

namespace halvern {

/// Keeps a station's best path: the one of fewest hops that it was heard by; of two alike the older.
/// @param call  the call field, 9 characters
/// @param path  the path as received, or "None"
void UpdateDigiLst(Halvern& halvern, std::string_view call, std::string_view path);

} // namespace halvern
