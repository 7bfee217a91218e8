// SPDX-License-Identifier: GPL-3.0-or-later
#include "protocol/UtcTime.h"

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

} // namespace halvern
