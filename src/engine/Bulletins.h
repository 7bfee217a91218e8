// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "platform/Lists.h"

namespace halvern {

/// Files a bulletin: an update in the place of the one it updates, a new one among those of its source, lettered ones
/// by letter and numbered ones by number.
///
/// @param row  "source>addressee:text", the addressee beginning "BLN"
/// @return false for a row that is there already
bool FileBulletin(KeyedList& store, std::string_view row);

} // namespace halvern
