// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

/// Taking messages out of the queue by hand. While the dialog is up the retries rest.
namespace halvern {

/// Brings up the dialog, where a message waits.
void OpenKillMessages(Halvern& halvern);

/// The dialog loads: the retries stop, the queue is shown.
void LoadKillMessages(Halvern& halvern);

/// Removes every marked message, from the queue and from the operator's list. Closes the dialog when none is left.
void KillMarkedMessages(Halvern& halvern);

} // namespace halvern
