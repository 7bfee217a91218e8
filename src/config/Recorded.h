// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/SetUpfrm.h"

/// What the setup form remembers of its values while it is up.
namespace halvern {

/// Takes down the present values.
void RecordSetUp(SetUpForm& setUp);

/// Whether a value that own packets show, or that decides how they go out, differs from what was recorded.
bool BeaconDataChanged(SetUpForm& setUp);

/// Puts every recorded value back. Lists keep the entries that were added or taken away meanwhile.
void RestoreSetUp(SetUpForm& setUp);

} // namespace halvern
