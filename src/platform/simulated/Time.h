// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <map>

#include "platform/Clock.h"
#include "platform/Controls.h"

namespace halvern {

/// Time that moves when told. The clock starts at 2000-01-01 00:00:00 UTC, and local time is UTC unless a zone is set.
class SimulatedTime final : public Clock {
public:
    Moment LocalTime() const override;
    TimeZone Zone() const override { return zone; }
    /// Local time stands thus to UTC from now on.
    void SetZone(const TimeZone& next) { zone = next; }
    /// Sets the clock; no timer fires.
    void SetUtc(const Moment& moment);

    /// Takes over the timers among these controls.
    void Drive(Controls& controls);
    /// Lets milliseconds pass; due timers fire in the order of their time, each after a whole interval since it was
    /// started or its interval changed.
    void Wait(std::int64_t milliseconds);
    /// Milliseconds that have passed since the start.
    std::int64_t Elapsed() const { return elapsed; }

private:
    struct Wheel {
        int interval = 0; ///< 0: it does not run
        std::int64_t due = 0;
        std::int64_t order = 0; ///< of two that are due together the one started first fires first
    };
    void Restart(const Timer& timer, Wheel& wheel);
    std::map<const Timer*, Wheel>::iterator NextDue();

    std::int64_t elapsed = 0;
    std::int64_t epochAtStart = 946684800000; ///< milliseconds UTC when `elapsed` was 0
    std::int64_t starts = 0;
    TimeZone zone;
    std::map<const Timer*, Wheel> wheels;
};

} // namespace halvern
