// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "state/Halvern.h"

namespace halvern {

/// Carries out a command of the map menu or the toolbar by its word: "PanMap", "ZoomLast", "ZoomUSA", "DosMap" and
/// so on. A word that it does not know does nothing.
void MapCommand(Halvern& halvern, std::string_view word);

} // namespace halvern
