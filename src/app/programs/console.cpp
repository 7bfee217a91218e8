// SPDX-License-Identifier: GPL-3.0-or-later
// halvern-console: the station, driven by lines of text on standard input.
#include <QApplication>
#include <QCommandLineParser>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QSocketNotifier>
#include <QTimer>

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <deque>
#include <memory>
#include <span>

#include "app/ConsoleSession.h"
#include "app/Handlers.h"
#include "forms/Windows.h"
#include "platform/qt/EndSignals.h"
#include "platform/qt/FolderLock.h"
#include "platform/qt/MapPainter.h"
#include "platform/qt/Pictures.h"
#include "platform/qt/QtDialogs.h"
#include "platform/qt/QtPlatform.h"
#include "platform/qt/StationFolder.h"

namespace halvern {
namespace {

/// Standard input as lines, read while the event loop runs.
class LineReader {
public:
    LineReader() : notifier(STDIN_FILENO, QSocketNotifier::Read)
    {
        QObject::connect(&notifier, &QSocketNotifier::activated, &notifier, [this] { Read(); });
    }

    /// Waits for a line, and runs events meanwhile. @return nothing at the end, or as soon as `stop` is true
    std::optional<std::string> Next(const std::function<bool()>& stop)
    {
        std::fflush(stdout);
        while (lines.empty() && !ended && !stop()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        if (lines.empty() || stop()) return {};
        auto line = std::move(lines.front());
        lines.pop_front();
        return line;
    }

    /// A signal asked the program to end.
    bool Stopped() const { return stopped; }

private:
    void Read()
    {
        char bytes[65536];
        const auto count = ::read(STDIN_FILENO, bytes, sizeof bytes);
        if (count < 0 && (errno == EINTR || errno == EAGAIN)) return;
        if (count <= 0) {
            ended = true;
            notifier.setEnabled(false);
            if (!unfinished.empty()) lines.push_back(std::exchange(unfinished, {}));
            return;
        }
        unfinished.append(bytes, static_cast<std::size_t>(count));
        std::size_t start = 0;
        for (auto end = unfinished.find('\n'); end != std::string::npos; end = unfinished.find('\n', start)) {
            lines.push_back(unfinished.substr(start, end - start));
            start = end + 1;
        }
        unfinished.erase(0, start);
    }

    /// Who ends the program from outside ends its input, and the station closes as it should.
    EndSignals signalled{[this] {
        lines.clear();
        ended = stopped = true;
        QCoreApplication::exit(); // whatever waits in a loop of its own, a connection that is tried
    }};
    QSocketNotifier notifier;
    std::deque<std::string> lines;
    std::string unfinished;
    bool ended = false;
    bool stopped = false;
};

/// Windows need an application with a screen, or with a picture of one; without them there may be neither.
std::unique_ptr<QCoreApplication> MakeApplication(int& count, char** arguments)
{
    const std::span words(arguments, static_cast<std::size_t>(count));
    const bool windows = std::ranges::any_of(words, [](const char* word) { return word == std::string("--windows"); });
    if (!windows) return std::make_unique<QCoreApplication>(count, arguments);
    const bool screen = qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    if (!screen && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    auto application = std::make_unique<QApplication>(count, arguments);
    QApplication::setQuitOnLastWindowClosed(false); // the input says when it is over
    return application;
}

struct Options {
    bool simulate = false;
    bool windows = false;
    std::string directory;
};

Options ReadOptions(const QCoreApplication& application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription("The station, driven by lines of text on standard input.");
    parser.addHelpOption();
    parser.addOption({"simulate", "Simulate the clock, the serial ports and the sockets."});
    parser.addOption({"windows", "Show the windows too."});
    parser.addPositionalArgument("DIRECTORY", "The application directory.", "[DIRECTORY]");
    parser.process(application);
    const auto directories = parser.positionalArguments();
    if (directories.size() > 1) parser.showHelp(2);
    return {parser.isSet("simulate"), parser.isSet("windows"), StationFolder(directories)};
}

void PassRealTime(std::int64_t milliseconds, const std::function<bool()>& stop)
{
    std::fflush(stdout);
    const QDeadlineTimer deadline(milliseconds);
    QTimer alarm;
    alarm.setTimerType(Qt::PreciseTimer);
    alarm.start(std::chrono::milliseconds(milliseconds));
    while (!deadline.hasExpired() && !stop()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

int RunConsole(const Options& options)
{
    const auto print = [](const std::string& line) { std::printf("%s\n", line.c_str()); };
    SystemClock systemClock;
    SimulatedTime simulatedTime;
    NotedDialogs dialogs;
    FolderLock lock(options.directory);
    if (const auto owner = options.simulate ? std::string() : lock.Take(); !owner.empty()) {
        dialogs.Say = print;
        dialogs.Message(Icon::Critical, owner, ProgramTitle);
        return 1;
    }
    DiskFiles files(options.simulate ? PathForm::AsWritten : PathForm::System);
    const Clock& clock = options.simulate ? static_cast<const Clock&>(simulatedTime) : systemClock;
    Halvern halvern({clock, dialogs, files, ShownSize}, options.directory);
    NotedDrawing map(halvern.MapFrm.Map1), picture(halvern.MapFrm.Pic1);
    std::optional<SimulatedPorts> ports;
    std::optional<QtPlatform> real;

    LineReader input;
    ConsoleWorld world{halvern, dialogs, map, picture};
    world.Print = print;
    world.NextLine = [&](const std::function<bool()>& stop) { return input.Next(stop); };
    world.PassTime = [&](std::int64_t milliseconds) {
        PassRealTime(milliseconds, [&] { return halvern.Engine.Ended || input.Stopped(); });
    };
    if (options.simulate) {
        simulatedTime.Drive(halvern.All);
        world.time = &simulatedTime;
        world.ports = &ports.emplace(halvern.All);
    } else {
        real.emplace(halvern.All, options.directory);
    }
    ConnectHandlers(halvern);
    std::deque<MapPainter> painters; // without windows there is nobody else who makes pictures of maps
    std::optional<Windows> windows;
    if (!options.windows) {
        for (auto* surface : halvern.MapFrm.Surfaces()) painters.emplace_back(*surface);
    } else {
        dialogs.Screen = [&](Surface& onto) { ShowImage(onto, windows->Main().grab().toImage()); };
        windows.emplace(halvern);
        world.SavePicture = [&windows](Form& form, const std::string& file) {
            return windows->SavePicture(form, file);
        };
    }
    return ConsoleSession(std::move(world)).Run();
}

} // namespace
} // namespace halvern

int main(int count, char** arguments)
{
    const auto application = halvern::MakeApplication(count, arguments);
    return halvern::RunConsole(halvern::ReadOptions(*application));
}
