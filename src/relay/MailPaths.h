// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

/// The list of paths that messages go by: two built-in entries, then the operator's own. A change lasts for the run,
/// until the operator saves the settings.
namespace halvern {

/// Asks for a path, at most 20; one of the Internet is refused.
void AddMailPath(Halvern& halvern);
/// Asks for what the selected path shall be. The built-in ones stay.
void ChangeMailPath(Halvern& halvern);
/// Takes the selected path out. The built-in ones stay.
void DeleteMailPath(Halvern& halvern);

} // namespace halvern
