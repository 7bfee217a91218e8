// SPDX-License-Identifier: GPL-3.0-or-later
// halvern-console: the station, driven by lines of text on standard input. It knows no windows: with --windows it gives
// way to the program that has them.
#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "app/Handlers.h"
#include "app/console/ConsoleStation.h"
#include "app/console/InputLines.h"
#include "app/programs/LiveConsole.h"
#include "platform/ApplicationFolder.h"
#include "platform/SignalPipe.h"

namespace halvern {
namespace {

/// Becomes the program with the windows. @return the status where that can't be
int BecomeTheOneWithWindows(char** arguments)
{
    const auto program = CompanionProgram("halvern-console-windows");
    ::execv(program.c_str(), arguments);
    std::fprintf(stderr, "The windows are not there: %s can't be started (%s).\n", program.c_str(),
                 std::strerror(errno));
    return 1;
}

/// Waits for input, or for a signal to end.
void WaitFor(InputLines& input, const SignalPipe& ending)
{
    pollfd sources[] = {{STDIN_FILENO, POLLIN, 0}, {ending.ReadEnd(), POLLIN, 0}};
    if (::poll(sources, 2, -1) < 0) return; // a signal came, and is there to read now
    if (sources[1].revents != 0)
        input.Stop();
    else if (sources[0].revents != 0)
        input.Read();
}

int RunSimulated(const ConsoleOptions& options)
{
    ConsoleStation station(options, WholePictureSize);
    station.KeepPictures();
    InputLines input;
    const SignalPipe ending;
    station.world.NextLine = [&](const std::function<bool()>& stop) {
        return input.Next(stop, [&] { WaitFor(input, ending); });
    };
    ConnectHandlers(station.halvern);
    return ConsoleSession(station.world).Run();
}

} // namespace
} // namespace halvern

int main(int count, char** arguments)
{
    const auto options = halvern::ReadConsoleOptions({arguments, static_cast<std::size_t>(count)});
    if (options.end) return *options.end;
    if (options.windows) return halvern::BecomeTheOneWithWindows(arguments);
    return options.simulate ? halvern::RunSimulated(options) : halvern::RunLive(count, arguments, options);
}
