// SPDX-License-Identifier: GPL-3.0-or-later
// A log of a million lines imported in the desktop program, map and lists open: its rate over the engine's alone, and
// the longest time, in milliseconds, for which the windows got no turn. Then one that the operator stops.
#include <benchmark/benchmark.h>

#include <QtWidgets>

#include "LoggedStation.h"
#include "forms/Windows.h"
#include "platform/qt/screen/QtProgress.h"

namespace halvern {
namespace {

constexpr std::size_t Million = 1000000;
constexpr QSize Screen(1366, 768);

/// Only the window that shows how far it is stands on the screen; the file is known, and nobody reads the messages.
struct Operator final : NotedDialogs {
    std::optional<std::string> File(const FileRequest&) override { return log; }
    std::unique_ptr<Progress> ShowProgress(const std::string& title) override
    {
        return std::make_unique<QtProgress>(QApplication::activeWindow(), QString::fromStdString(title));
    }
    std::string log;
};

struct Desktop {
    Desktop()
    {
        asked.log = logged.Log();
        for (auto* form : std::initializer_list<Form*>{&halvern.MapFrm, &halvern.PositionFrm, &halvern.StatusFrm,
                                                       &halvern.DigiFrm, &halvern.TerminalFrm, &halvern.HeardFrm})
            form->Show();
        windows.Main().resize(Screen);
        windows.Main().show();
        halvern.ConMdiFrm.TileMenu.Click();
        QCoreApplication::processEvents();
        QObject::connect(&pulse, &QTimer::timeout, [this] { NoteTurn(); });
    }
    /// @return seconds
    double Import()
    {
        longest = 0;
        sinceTurn.start();
        pulse.start(0);
        QElapsedTimer clock;
        clock.start();
        halvern.ConMdiFrm.ImportLog.Click();
        const double seconds = static_cast<double>(clock.nsecsElapsed()) / 1e9;
        QCoreApplication::processEvents();
        pulse.stop();
        return seconds;
    }
    void NoteTurn()
    {
        longest = std::max(longest, static_cast<double>(sinceTurn.nsecsElapsed()) / 1e6);
        sinceTurn.start();
    }

    Operator asked;
    test::LoggedStation logged{Million, &asked};
    Halvern& halvern = logged.station.halvern;
    Windows windows{halvern};
    QTimer pulse;
    QElapsedTimer sinceTurn;
    double longest = 0; ///< milliseconds between two turns
};

void ImportOnTheDesktop(benchmark::State& state)
{
    Desktop desktop;
    if (desktop.logged.lines.empty()) return state.SkipWithError("no recorded traffic on this machine");
    test::LoggedStation quiet(1);
    double engine = 0, import = 0, longest = 0;
    for (auto _ : state) {
        QElapsedTimer clock;
        clock.start();
        for (std::size_t i = 0; i < Million; ++i) quiet.station.Hear(quiet.lines[i % quiet.lines.size()], "TCPIP");
        engine += static_cast<double>(clock.nsecsElapsed()) / 1e9;
        const double once = desktop.Import();
        state.SetIterationTime(once);
        import += once;
        longest = std::max(longest, desktop.longest);
        desktop.logged.Restore();
        QCoreApplication::processEvents();
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(Million));
    state.counters["of_engine"] = engine / import;
    state.counters["longest_gap"] = longest;
}
BENCHMARK(ImportOnTheDesktop)->UseManualTime()->Iterations(3)->Unit(benchmark::kSecond);

/// From the click on Stop until the way back is offered.
void Stop(benchmark::State& state)
{
    Desktop desktop;
    if (desktop.logged.lines.empty()) return state.SkipWithError("no recorded traffic on this machine");
    const int kept = desktop.halvern.PositionFrm.PosLst.Count();
    for (auto _ : state) {
        QElapsedTimer clock;
        QTimer::singleShot(500, [&] {
            clock.start();
            if (auto* window = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget()))
                window->findChild<QPushButton*>()->click();
        });
        desktop.Import();
        state.SetIterationTime(static_cast<double>(clock.nsecsElapsed()) / 1e9);
        if (desktop.halvern.PositionFrm.PosLst.Count() < 2) return state.SkipWithError("nothing was played");
        desktop.logged.Restore();
        if (desktop.halvern.PositionFrm.PosLst.Count() != kept) return state.SkipWithError("another state came back");
    }
}
BENCHMARK(Stop)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace halvern

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
