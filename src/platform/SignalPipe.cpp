// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/SignalPipe.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <tuple>

namespace halvern {
namespace {

constexpr int EndingSignals[] = {SIGTERM, SIGINT, SIGHUP};
volatile std::sig_atomic_t writeEnd = -1;

} // namespace

SignalPipe::SignalPipe()
{
    std::signal(SIGXFSZ, SIG_IGN);
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) {
        ends[0] = ends[1] = -1;
        return;
    }
    writeEnd = ends[1];
    for (const int signal : EndingSignals) std::signal(signal, [](int) { std::ignore = ::write(writeEnd, "", 1); });
}

SignalPipe::~SignalPipe()
{
    for (const int signal : EndingSignals) std::signal(signal, SIG_DFL);
    std::signal(SIGXFSZ, SIG_DFL);
    for (const int end : ends)
        if (end >= 0) ::close(end);
}

} // namespace halvern
