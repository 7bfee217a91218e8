// SPDX-License-Identifier: GPL-3.0-or-later
#include "protocol/UtcTime.h"

#include <algorithm>

#include "platform/Text.h"

namespace halvern {

int UtcOffsetSeconds(const TimeZone& zone)
{
    int offset = -60 * zone.bias;
    if (zone.daylightInForce && zone.daylightMonth != 0) offset -= 60 * zone.daylightBias;
    return offset;
}

Moment UtcNow(const Clock& clock, const Moment& local)
{
    return MomentOf(SecondsOf(local) - UtcOffsetSeconds(clock.Zone()));
}

Moment UtcNow(const Clock& clock)
{
    return UtcNow(clock, clock.LocalTime());
}

std::optional<int> MinutesSince(std::string_view stamp, const Moment& utcNow)
{
    if (stamp.size() != 6 || !std::ranges::all_of(stamp, IsDigit)) return {};
    const auto pair = [&](std::size_t column) { return static_cast<int>(LeadingNumber(Columns(stamp, column, 2))); };
    Moment then{utcNow.year, utcNow.month, pair(1), pair(3), pair(5)};
    if (then.day < 1 || then.day > 31 || then.hour > 23 || then.minute > 59) return {};
    constexpr std::int64_t halfDay = 12 * 60 * 60;
    const auto now = SecondsOf(utcNow);
    if (SecondsOf(then) > now + halfDay && --then.month == 0) then.month = 12, --then.year;
    return static_cast<int>(std::max<std::int64_t>(0, now - SecondsOf(then)) / 60);
}

std::string AgeInWords(int minutes)
{
    constexpr int hour = 60, day = 24 * hour;
    const auto two = [minutes](int large, const char* of, int small, const char* by) {
        const int rest = minutes % large / small;
        return std::to_string(minutes / large) + of + (rest > 0 ? " " + std::to_string(rest) + by : "");
    };
    if (minutes < 1) return "now";
    if (minutes < hour) return std::to_string(minutes) + " min";
    return minutes < day ? two(hour, " h", 1, " min") : two(day, " d", hour, " h");
}

} // namespace halvern
