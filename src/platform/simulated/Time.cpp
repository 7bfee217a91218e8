// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/simulated/Time.h"

#include <algorithm>
#include <tuple>

namespace halvern {

Moment SimulatedTime::LocalTime() const
{
    const int bias = zone.bias + (zone.daylightInForce && zone.daylightMonth != 0 ? zone.daylightBias : 0);
    return MomentOf((epochAtStart + elapsed) / 1000 - bias * 60);
}

void SimulatedTime::SetUtc(const Moment& moment)
{
    epochAtStart = SecondsOf(moment) * 1000 - elapsed;
}

void SimulatedTime::Drive(Controls& controls)
{
    for (auto* control : controls.All()) {
        auto* timer = dynamic_cast<Timer*>(control);
        if (timer == nullptr) continue;
        Restart(*timer, wheels[timer]);
        timer->Watch([this, timer](const Change&) {
            auto& wheel = wheels[timer];
            const int now = timer->Running() ? timer->Interval() : 0;
            if (now != wheel.interval) Restart(*timer, wheel);
        });
    }
}

void SimulatedTime::Restart(const Timer& timer, Wheel& wheel)
{
    wheel = {timer.Running() ? timer.Interval() : 0, elapsed + timer.Interval(), ++starts};
}

std::map<const Timer*, SimulatedTime::Wheel>::iterator SimulatedTime::NextDue()
{
    auto next = wheels.end();
    for (auto wheel = wheels.begin(); wheel != wheels.end(); ++wheel) {
        if (wheel->second.interval == 0) continue;
        if (next == wheels.end() ||
            std::tie(wheel->second.due, wheel->second.order) < std::tie(next->second.due, next->second.order))
            next = wheel;
    }
    return next;
}

void SimulatedTime::Wait(std::int64_t milliseconds)
{
    const std::int64_t end = elapsed + milliseconds;
    for (;;) {
        const auto next = NextDue();
        if (next == wheels.end() || next->second.due > end) break;
        elapsed = std::max(elapsed, next->second.due); // a handler that waits itself may have passed others by
        next->second.due += next->second.interval;
        const Timer& timer = *next->first;
        timer.Directory().Dispatch(timer, [&] { timer.Tick(); });
    }
    elapsed = std::max(elapsed, end);
}

} // namespace halvern
