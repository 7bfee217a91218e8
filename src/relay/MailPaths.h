// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

/// The list of paths that messages go by: two built-in entries, then the operator's own. A change lasts for the run,
/// until the operator saves the settings.
namespace halvern {

void AddMailPath(Halvern& halvern);
void ChangeMailPath(Halvern& halvern);
void DeleteMailPath(Halvern& halvern);

} // namespace halvern
