// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace halvern {

/// Makes SIGTERM, SIGINT and SIGHUP something to read, so that a program can end in its own order when the desktop, the
/// shell or the system ends it.
///
/// While it lives, a write past the limit for file sizes fails like one on a full disk, and does not end the program.
/// One at a time.
class SignalPipe {
public:
    SignalPipe();
    ~SignalPipe();
    SignalPipe(const SignalPipe&) = delete;
    SignalPipe& operator=(const SignalPipe&) = delete;

    /// Can be read once a signal has come. -1 where no pipe is to be had: the signals then end the program as they
    /// always do.
    int ReadEnd() const { return ends[0]; }

private:
    int ends[2]; ///< the one thing that a signal may do is write to it
};

} // namespace halvern
