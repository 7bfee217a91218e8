// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

/// The dialog that builds a path, entry by entry. Whoever opens it finds the path in `PathLbl` when it has hidden; an
/// empty one is none.
namespace halvern {

/// The update button puts the next entry behind the path: the call that was typed, or the choice.
void UpdatePath(Halvern& halvern);

/// Back to the beginning, as when the dialog opens.
void ClearPath(AddPathForm& form);

void CancelPath(AddPathForm& form);

/// Warns of a path that asks for many hops, and hides the dialog.
void AcceptPath(Halvern& halvern);

/// A digipeater's call must be typed before it can be added.
void AllowUpdate(AddPathForm& form);

} // namespace halvern
