// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

namespace halvern {

/// A date and time of the proleptic Gregorian calendar, without a zone.
struct Moment {
    int year = 2000;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;
    bool operator==(const Moment&) const = default;
};

/// Seconds since 1970-01-01 00:00:00 of the same zone, and back.
std::int64_t SecondsOf(const Moment& moment);
Moment MomentOf(std::int64_t seconds);

/// What the operating system says of the local time zone.
struct TimeZone {
    bool daylightInForce = false;
    int bias = 0;          ///< minutes to add to local time to reach UTC, daylight time left aside
    int daylightBias = 0;  ///< minutes to add to the bias while daylight time is in force, as a rule -60
    int daylightMonth = 0; ///< month in which daylight time begins; 0: the zone has no such rule
};

/// Where the program asks for the time.
class Clock {
public:
    virtual ~Clock() = default;
    /// The operator's wall clock.
    virtual Moment LocalTime() const = 0;
    /// How that clock stands to UTC now.
    virtual TimeZone Zone() const = 0;
};

/// The machine's clock and zone.
class SystemClock final : public Clock {
public:
    Moment LocalTime() const override;
    TimeZone Zone() const override;
};

/// Two digits each, without marks between: "ddhhmm".
std::string DayHourMinute(const Moment& moment);
/// The same with the seconds.
std::string DayHourMinuteSecond(const Moment& moment);

} // namespace halvern
