// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include <QApplication>
#include <QDeadlineTimer>

namespace halvern::test {

/// Runs the event loop until something holds. @return false if it does not within the time.
inline bool RunUntil(const std::function<bool()>& holds, int milliseconds = 5000)
{
    const QDeadlineTimer deadline(milliseconds);
    while (!holds()) {
        if (deadline.hasExpired()) return false;
        QApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 20);
    }
    return true;
}

/// Runs the event loop for a while.
inline void RunFor(int milliseconds)
{
    RunUntil([] { return false; }, milliseconds);
}

} // namespace halvern::test
