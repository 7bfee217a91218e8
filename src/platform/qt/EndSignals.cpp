// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/EndSignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <tuple>
#include <utility>

namespace halvern {
namespace {

constexpr int EndingSignals[] = {SIGTERM, SIGINT, SIGHUP};
volatile std::sig_atomic_t writeEnd = -1;

/// @return the end to read from
int OpenPipe(int (&ends)[2])
{
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) ends[0] = ends[1] = -1;
    return ends[0];
}

} // namespace

EndSignals::EndSignals(std::function<void()> onEnd) : arrived(OpenPipe(ends), QSocketNotifier::Read)
{
    std::signal(SIGXFSZ, SIG_IGN);
    if (ends[1] < 0) return; // the signals end the program as they always do
    QObject::connect(&arrived, &QSocketNotifier::activated, [this, onEnd = std::move(onEnd)] {
        arrived.setEnabled(false); // an ending session sends several
        onEnd();
    });
    writeEnd = ends[1];
    for (const int signal : EndingSignals) std::signal(signal, [](int) { std::ignore = ::write(writeEnd, "", 1); });
}

EndSignals::~EndSignals()
{
    for (const int signal : EndingSignals) std::signal(signal, SIG_DFL);
    std::signal(SIGXFSZ, SIG_DFL);
    for (const int end : ends)
        if (end >= 0) ::close(end);
}

} // namespace halvern
