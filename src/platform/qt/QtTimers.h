// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>

#include <QTimer>

#include "platform/Controls.h"

namespace halvern {

/// Lets every timer among some controls tick by the machine's clock.
class QtTimers {
public:
    explicit QtTimers(Controls& controls);
    ~QtTimers();
    QtTimers(const QtTimers&) = delete;
    QtTimers& operator=(const QtTimers&) = delete;

private:
    struct Wheel {
        explicit Wheel(Timer& timer) : timer(timer) {}
        void Follow();
        Timer& timer;
        QTimer beat;
        int watch = 0;
        int interval = 0; ///< 0: it does not run
    };
    std::deque<Wheel> wheels;
};

} // namespace halvern
