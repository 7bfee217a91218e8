// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/resource.h>

#include <csignal>

#include <QFile>
#include <QProcess>
#include <QRegularExpression>

#include "platform/qt/EndSignals.h"
#include "platform/qt/FolderLock.h"
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

/// The desktop program in a folder, once it takes an end signal.
struct Desktop : QProcess {
    explicit Desktop(const TemporaryFolder& folder)
    {
        setProcessChannelMode(ForwardedErrorChannel);
        start(HALVERN_BUILD "/halvern", {QString::fromStdString(folder.Path())});
        EXPECT_TRUE(waitForStarted() && RunUntil([&] { return Catches(processId(), SIGHUP); }));
    }
    /// @return its exit code, -1 where the signal killed it
    int EndBy(int signal)
    {
        ::kill(static_cast<pid_t>(processId()), signal);
        EXPECT_TRUE(waitForFinished(60000));
        return exitStatus() == NormalExit ? exitCode() : -1;
    }
};

void Configure(const TemporaryFolder& folder)
{
    folder.Put("Halvern.INI", DiskFiles().Read(DataFolder() + "/demo/Halvern.INI").value_or(""));
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
        if (configured) Configure(folder);
        EXPECT_EQ(Desktop(folder).EndBy(signal), 0) << what;
        EXPECT_FALSE(DiskFiles().Exists(folder.Path() + "/Pos.txt")) << what;
    }
}

/// A program that is killed leaves its lock behind; the next one takes it over and loses no setting.
TEST(EndSignals, ADesktopProgramThatWasKilledStartsAgainAsItWas)
{
    const TemporaryFolder folder;
    LinkData(folder);
    Configure(folder);
    const auto settings = [&] { return DiskFiles().Read(folder.Path() + "/Halvern.INI").value_or("none"); };
    Desktop first(folder);
    const auto before = settings();
    EXPECT_EQ(first.EndBy(SIGKILL), -1);
    EXPECT_EQ(settings(), before);
    EXPECT_TRUE(DiskFiles().Exists(folder.Path() + "/Halvern.lock"));
    Desktop again(folder);
    EXPECT_THAT(FolderLock(folder.Path()).Take(), HasSubstr("process " + std::to_string(again.processId())));
    EXPECT_EQ(again.EndBy(SIGTERM), 0);
    EXPECT_EQ(settings(), before);
    EXPECT_FALSE(DiskFiles().Exists(folder.Path() + "/Halvern.lock"));
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
