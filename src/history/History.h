// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

/// History files hold the packets of some stations: cut out of the raw packets, and played back.
namespace halvern {

/// Shows `Hist` for one of its two jobs. @param exporting  cuts packets out; else plays them back
void OpenHistory(Halvern& halvern, bool exporting);

/// The first field decides whether there is something to search for.
void AllowSearch(HistoryForm& form);

/// Does the job for the calls in the twenty fields. Each is a prefix, in any case: a call without SSID finds them all.
void SearchHistory(Halvern& halvern);

} // namespace halvern
