// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/QtTimers.h"

namespace halvern {

QtTimers::QtTimers(Controls& controls)
{
    for (auto* control : controls.All()) {
        auto* timer = dynamic_cast<Timer*>(control);
        if (timer == nullptr) continue;
        auto& wheel = wheels.emplace_back(*timer);
        wheel.beat.setTimerType(Qt::PreciseTimer);
        QObject::connect(&wheel.beat, &QTimer::timeout,
                         [timer] { timer->Directory().Dispatch(*timer, [timer] { timer->Tick(); }); });
        wheel.watch = timer->Watch([&wheel](const Change&) { wheel.Follow(); });
        wheel.Follow();
    }
}

QtTimers::~QtTimers()
{
    for (auto& wheel : wheels) wheel.timer.Unwatch(wheel.watch);
}

void QtTimers::Wheel::Follow()
{
    const int wanted = timer.Running() ? timer.Interval() : 0;
    if (wanted == interval) return;
    interval = wanted;
    if (wanted > 0)
        beat.start(wanted);
    else
        beat.stop();
}

} // namespace halvern
