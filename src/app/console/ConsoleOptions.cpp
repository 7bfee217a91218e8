// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/console/ConsoleOptions.h"

#include <cstdio>
#include <string_view>

#include "platform/Version.h"

namespace halvern {
namespace {

constexpr const char* Usage = "Usage: halvern-console [--simulate] [--windows] [DIRECTORY]\n"
                              "The station, driven by lines of text on standard input.\n\n"
                              "  -h, --help   Displays this help.\n"
                              "  --version    Displays the version.\n"
                              "  --simulate   Simulate the clock, the serial ports and the sockets.\n"
                              "  --windows    Show the windows too.\n"
                              "  DIRECTORY    The application directory.\n";

} // namespace

ConsoleOptions ReadConsoleOptions(std::span<char*> words)
{
    ConsoleOptions options;
    int directories = 0;
    for (const std::string_view word : words.subspan(1)) {
        if (word == "--simulate") {
            options.simulate = true;
        } else if (word == "--windows") {
            options.windows = true;
        } else if (word == "-h" || word == "--help") {
            std::fputs(Usage, stdout);
            options.end = 0;
        } else if (word == "--version") {
            std::printf("halvern-console %s\n", ProgramVersion().c_str());
            options.end = 0;
        } else if (word.starts_with('-')) {
            std::fprintf(stderr, "Unknown option '%s'.\n", std::string(word).c_str());
            options.end = 1;
        } else {
            options.directory = word;
            ++directories;
        }
        if (options.end) return options;
    }
    if (directories < 2) return options;
    std::fputs(Usage, stdout);
    options.end = 2;
    return options;
}

} // namespace halvern
