// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Clock.h"

namespace halvern {

/// Seconds to add to UTC to reach local time, west negative. The zone's standard bias has no part in it.
int UtcOffsetSeconds(const TimeZone& zone);

/// The present time in UTC.
Moment UtcNow(const Clock& clock);
/// A local moment in UTC, by the offset that is in force now.
Moment UtcNow(const Clock& clock, const Moment& local);

} // namespace halvern
