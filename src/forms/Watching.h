// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>
#include <functional>
#include <utility>

#include "platform/Controls.h"

namespace halvern {

/// Has `watcher` told of every change of a control for as long as `owner` lives. The control outlives the windows.
inline void WatchFor(QObject* owner, Control& control, Control::Watcher watcher)
{
    const int watch = control.Watch(std::move(watcher));
    QObject::connect(owner, &QObject::destroyed, [&control, watch] { control.Unwatch(watch); });
}

/// Runs what the operator did. While it runs, `writing` is set, so that the widget that wrote is not told of its own
/// write; afterwards `settle` brings it in step with what the rules made of it.
template <class Act, class Settle> void FromScreen(Control& control, bool& writing, Act act, Settle settle)
{
    const bool outer = std::exchange(writing, true);
    control.Directory().Dispatch(act);
    writing = outer;
    if (!outer) settle();
}

/// The same for what leaves nothing to settle: a click, a key.
template <class Act> void FromScreen(const Control& control, Act act)
{
    control.Directory().Dispatch(act);
}

/// Runs something as often as it is asked for, but never twice within a period: the last request is never lost.
class Pacer final : public QObject {
public:
    Pacer(QObject* owner, int periodMs, std::function<void()> act) : QObject(owner), act(std::move(act))
    {
        timer.setInterval(periodMs);
        timer.setSingleShot(true);
        connect(&timer, &QTimer::timeout, this, [this] {
            if (std::exchange(again, false)) Ask();
        });
    }
    void Ask()
    {
        again = timer.isActive();
        if (again) return;
        timer.start();
        act();
    }

private:
    std::function<void()> act;
    QTimer timer;
    bool again = false;
};

} // namespace halvern
