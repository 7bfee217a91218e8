// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include <QApplication>
#include <QDeadlineTimer>

namespace halvern::test {

/// Runs the event loop until something holds. @return false if it does not within a time that no slow machine needs.
inline bool RunUntil(const std::function<bool()>& holds, int milliseconds = 60000)
{
    const QDeadlineTimer deadline(milliseconds);
    while (!holds()) {
        if (deadline.hasExpired()) return false;
        QApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 20);
    }
    return true;
}

} // namespace halvern::test
