// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/resource.h>

#include <csignal>

#include <QFile>
#include <QProcess>
#include <QRegularExpression>

#include "platform/qt/EndSignals.h"
#include "support/Console.h"
#include "support/StationTest.h"
#include "support/qt/Application.h"

namespace halvern::test {
namespace {

/// Whether a running program has a signal caught, as the system sees it.
bool Catches(qint64 program, int signal)
{
    QFile status(QStringLiteral("/proc/%1/status").arg(program));
    if (!status.open(QIODevice::ReadOnly)) return false;
    const auto mask = QRegularExpression("SigCgt:\\s*(\\w+)").match(status.readAll()).captured(1);
    return (mask.toULongLong(nullptr, 16) >> (signal - 1) & 1) != 0;
}

/// The desktop program ends in its own order whatever it is waiting for.
TEST(EndSignals, EndTheDesktopProgramAsItsMenuItemDoes)
{
    const struct {
        const char* what;
        int signal;
        bool configured, maps;
    } cases[] = {{"the station runs", SIGTERM, true, true},
                 {"the first run's form waits", SIGINT, false, true},
                 {"a box waits", SIGHUP, false, false}};
    for (const auto& [what, signal, configured, maps] : cases) {
        const TemporaryFolder folder;
        if (maps) LinkData(folder);
        folder.Put("Pos.txt", "a row of this run's");
        if (configured) folder.Put("Halvern.INI", DiskFiles().Read(DataFolder() + "/demo/Halvern.INI").value_or(""));
        QProcess program;
        program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        program.start(HALVERN_BUILD "/halvern", {QString::fromStdString(folder.Path())});
        ASSERT_TRUE(program.waitForStarted()) << what;
        ASSERT_TRUE(RunUntil([&] { return Catches(program.processId(), signal); }, 30000)) << what;
        ::kill(static_cast<pid_t>(program.processId()), signal);
        EXPECT_TRUE(program.waitForFinished(30000)) << what;
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit) << what;
        EXPECT_EQ(program.exitCode(), 0) << what;
        EXPECT_FALSE(DiskFiles().Exists(folder.Path() + "/Pos.txt")) << what;
    }
}

TEST(EndSignals, AFullLimitIsToldLikeAFullDisk)
{
    const EndSignals ending([] {});
    const TemporaryFolder folder;
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const rlimit none{0, before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &none);
    const auto fault = DiskFiles().Write(folder.Path() + "/settings", "x");
    ::setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_FALSE(fault.empty());
}

} // namespace
} // namespace halvern::test
