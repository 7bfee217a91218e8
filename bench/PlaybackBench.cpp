// SPDX-License-Identifier: GPL-3.0-or-later
// A log of a million lines, made of recorded traffic: its import beside the engine alone, a history search beside
// "grep -f" over the same file; and rounds of import and restore with the memory that they leave.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>

#include "LoggedStation.h"
#include "engine/ProcessPacket.h"

namespace halvern {
namespace {

constexpr std::size_t Million = 1000000;

double SecondsOf(const std::function<void()>& work)
{
    const auto begun = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count();
}

/// The import; the counter is its rate over the engine's for the same lines out of the memory, heard live.
void Import(benchmark::State& state)
{
    test::LoggedStation logged(Million);
    if (logged.lines.empty()) return state.SkipWithError("no recorded traffic on this machine");
    double engine = 0, import = 0;
    for (auto _ : state) {
        logged.station.halvern.ConMdiFrm.ClearMenu.Click();
        engine += SecondsOf([&] {
            for (std::size_t i = 0; i < Million; ++i)
                logged.station.Hear(logged.lines[i % logged.lines.size()], "TCPIP");
        });
        const double once = SecondsOf([&] { logged.Import(); });
        state.SetIterationTime(once);
        import += once;
        logged.Restore();
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(Million));
    state.counters["of_engine"] = engine / import;
}
BENCHMARK(Import)->UseManualTime()->Iterations(3)->Unit(benchmark::kSecond);

/// A search for twenty calls; the counter is its time over that of "grep -f", which writes what it finds into a file.
void History(benchmark::State& state, bool known)
{
    test::LoggedStation logged(Million);
    if (logged.lines.empty()) return state.SkipWithError("no recorded traffic on this machine");
    auto& form = logged.station.halvern.Hist;
    std::string calls;
    for (int i = form.Callsign.First(); i <= form.Callsign.Last(); ++i) {
        const auto& line = logged.lines[static_cast<std::size_t>(i) * 331 % logged.lines.size()];
        form.Callsign(i).SetText(known ? line.substr(0, line.find('>')) : "Q" + std::to_string(i) + "ZZZ");
        calls += form.Callsign(i).Text() + "\n";
    }
    logged.folder.Put("calls", calls);
    const auto grep = "cd '" + logged.folder.Path() + "' && grep -a -f calls long.log > found";
    double ours = 0, others = 0;
    for (auto _ : state) {
        others += SecondsOf([&] { benchmark::DoNotOptimize(std::system(grep.c_str())); });
        logged.station.dialogs.Answers.push_back({logged.Log()});
        const double once = SecondsOf([&] { form.Search1.Click(); });
        state.SetIterationTime(once);
        ours += once;
        if (known) logged.Restore();
    }
    state.counters["of_grep"] = ours / others;
}
BENCHMARK_CAPTURE(History, calls_that_are_in_it, true)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(History, calls_that_are_not, false)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

/// MB that the process holds.
double Resident()
{
    double all = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> all >> resident;
    return resident * 4096 / 1e6;
}

/// A round plays the recorded traffic once and brings the lists back. Memory is to be flat behind the first rounds.
void RoundsOfImportAndRestore(benchmark::State& state)
{
    test::LoggedStation logged(test::RecordedLines().size());
    if (logged.lines.empty()) return state.SkipWithError("no recorded traffic on this machine");
    const auto& stations = logged.station.halvern.PositionFrm.PosLst;
    const int kept = stations.Count();
    int round = 0;
    for (auto _ : state) {
        logged.Import();
        logged.Restore();
        if (stations.Count() != kept) return state.SkipWithError("another state came back");
        if (++round == 10 || round == 100 || round == 200) state.counters["MB" + std::to_string(round)] = Resident();
    }
}
BENCHMARK(RoundsOfImportAndRestore)->Iterations(200)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace halvern

BENCHMARK_MAIN();
