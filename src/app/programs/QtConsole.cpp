// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/programs/QtConsole.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QSocketNotifier>
#include <QTimer>

#include <unistd.h>

#include <cstdio>

#include "app/Handlers.h"
#include "app/console/InputLines.h"
#include "platform/qt/EndSignals.h"
#include "platform/qt/FolderLock.h"
#include "platform/qt/QtPlatform.h"

namespace halvern {
namespace {

void RunEvents()
{
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void PassRealTime(std::int64_t milliseconds, const std::function<bool()>& stop)
{
    std::fflush(stdout);
    const QDeadlineTimer deadline(milliseconds);
    QTimer alarm;
    alarm.setTimerType(Qt::PreciseTimer);
    alarm.start(std::chrono::milliseconds(milliseconds));
    while (!deadline.hasExpired() && !stop()) RunEvents();
}

} // namespace

int RunInEventLoop(const ConsoleOptions& options, decltype(OutsideWorld::measure) measure,
                   const std::function<std::shared_ptr<void>(ConsoleStation&)>& show)
{
    ConsoleStation station(options, measure);
    auto& halvern = station.halvern;
    auto& world = station.world;
    FolderLock lock(halvern.ProgramFolder);
    if (const auto owner = options.simulate ? std::string() : lock.Take(); !owner.empty()) {
        station.dialogs.Say = world.Print;
        station.dialogs.Message(Icon::Critical, owner, ProgramTitle);
        return 1;
    }
    InputLines input;
    QSocketNotifier readable(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&readable, &QSocketNotifier::activated, [&] { readable.setEnabled(input.Read()); });
    const EndSignals signalled([&] {
        input.Stop();
        QCoreApplication::exit(); // whatever waits in a loop of its own, a connection that is tried
    });
    world.NextLine = [&](const std::function<bool()>& stop) { return input.Next(stop, RunEvents); };
    world.PassTime = [&](std::int64_t milliseconds) {
        PassRealTime(milliseconds, [&] { return halvern.Engine.Ended || input.Stopped(); });
    };
    std::optional<QtPlatform> real;
    if (!options.simulate) real.emplace(halvern.All, halvern.ProgramFolder);
    ConnectHandlers(halvern);
    const auto windows = show(station);
    return ConsoleSession(world).Run();
}

} // namespace halvern
