// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include <QSocketNotifier>

namespace halvern {

/// Has a program end in its own order when the desktop, the shell or the system ends it: SIGTERM, SIGINT, SIGHUP.
///
/// While it lives, a write past the limit for file sizes fails like one on a full disk, and does not end the program.
/// One at a time; needs a QCoreApplication.
class EndSignals {
public:
    /// @param onEnd  runs once, in whatever event loop runs then; what the program waits for must give way to it
    explicit EndSignals(std::function<void()> onEnd);
    ~EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

private:
    int ends[2]; ///< a pipe: the one thing that a signal may do is write to it
    QSocketNotifier arrived;
};

} // namespace halvern
