// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Clock.h"

namespace halvern {

/// Seconds to add to UTC to reach local time, west negative. The zone's standard bias has no part in it.
int UtcOffsetSeconds(const TimeZone& zone);

/// The present time in UTC.
Moment UtcNow(const Clock& clock);
/// A local moment in UTC, by the offset that is in force now.
Moment UtcNow(const Clock& clock, const Moment& local);

/// Minutes since a stamp "ddhhmm", which was less than a month ago; 0 for one of a clock that is up to half a day
/// ahead, nothing for one that is no time.
std::optional<int> MinutesSince(std::string_view stamp, const Moment& utcNow);
/// "now", "4 min", "2 h 5 min", "3 d 4 h".
std::string AgeInWords(int minutes);

} // namespace halvern
