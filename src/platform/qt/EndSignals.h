// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include <QSocketNotifier>

#include "platform/SignalPipe.h"

namespace halvern {

/// Has a program end in its own order at a signal to end, with all that SignalPipe says. Needs a QCoreApplication.
class EndSignals {
public:
    /// @param onEnd  runs once, in whatever event loop runs then; what the program waits for must give way to it
    explicit EndSignals(std::function<void()> onEnd);

private:
    SignalPipe pipe;
    QSocketNotifier arrived{pipe.ReadEnd(), QSocketNotifier::Read};
};

} // namespace halvern
