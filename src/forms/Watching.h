// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <algorithm>
#include <functional>
#include <set>
#include <utility>

#include "platform/Control.h"

namespace halvern {

/// Has `watcher` told of every change of a control for as long as `owner` lives. The control outlives the windows.
inline void WatchFor(QObject* owner, Control& control, Control::Watcher watcher)
{
    const int watch = control.Watch(std::move(watcher));
    QObject::connect(owner, &QObject::destroyed, [&control, watch] { control.Unwatch(watch); });
}

/// Lives while what the operator did runs: what changes meanwhile is shown at once.
class OperatorActs {
public:
    OperatorActs() { ++running; }
    ~OperatorActs() { --running; }
    OperatorActs(const OperatorActs&) = delete;
    OperatorActs& operator=(const OperatorActs&) = delete;
    static bool Running() { return running > 0; }

private:
    static inline int running = 0;
};

/// Runs what the operator did. While it runs, `writing` is set, so that the widget that wrote is not told of its own
/// write; afterwards `settle` brings it in step with what the rules made of it.
template <class Act, class Settle> void FromScreen(Control& control, bool& writing, Act act, Settle settle)
{
    const OperatorActs acts;
    const bool outer = std::exchange(writing, true);
    control.Directory().Dispatch(control, act);
    writing = outer;
    if (!outer) settle();
}

/// The same for what leaves nothing to settle: a click, a key.
template <class Act> void FromScreen(const Control& control, Act act)
{
    const OperatorActs acts;
    control.Directory().Dispatch(control, act);
}

/// Runs something soon after it is asked for, together for all who ask meanwhile. A single change, and whatever the
/// operator does, is so shown at once; a stream of changes from the ports is shown at a pace that the eye follows and
/// that leaves the processor alone.
class Pacer final : public QObject {
public:
    static constexpr int SoonMs = 30, PeriodMs = 220;

    Pacer(QObject* owner, std::function<void()> act) : QObject(owner), act(std::move(act))
    {
        timer.setSingleShot(true);
        connect(&timer, &QTimer::timeout, this, [this] { Run(); });
    }
    ~Pacer() override { waiting.erase(this); }
    void Ask()
    {
        const auto rest = OperatorActs::Running() || !last.isValid() ? 0 : PeriodMs - last.elapsed();
        const int wait = std::max(SoonMs, static_cast<int>(rest));
        if (!timer.isActive() || timer.remainingTime() > wait) timer.start(wait);
        waiting.insert(this);
    }
    /// Runs at once what any pacer has been asked for and waits to do.
    static void RunWaiting()
    {
        while (!waiting.empty()) (*waiting.begin())->Run();
    }

private:
    void Run()
    {
        timer.stop();
        waiting.erase(this);
        last.start();
        act();
    }
    static inline std::set<Pacer*> waiting;
    const std::function<void()> act;
    QTimer timer;
    QElapsedTimer last; ///< since it ran
};

/// Brings the windows in step with the state and paints them, without the wait for their pace. What the operator does
/// and what the ports hear comes later.
inline void ShowNow()
{
    for (int round = 0; round < 2; ++round) { // a window's first size asks for more
        Pacer::RunWaiting();
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers);
    }
}

} // namespace halvern
