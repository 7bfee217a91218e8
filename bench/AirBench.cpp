// SPDX-License-Identifier: GPL-3.0-or-later
// What the station itself takes, ports simulated: from the bytes of a frame to those that answer it.
#include <benchmark/benchmark.h>

#include "platform/Text.h"
#include "protocol/MyObject.h"
#include "support/Station.h"

namespace halvern {
namespace {

constexpr int MostRaw = 30000;

/// Hands the TNC's frames to a station in turn; each must be answered by one frame.
void FrameToFrame(benchmark::State& state, const std::vector<std::string>& lines)
{
    test::Station station;
    station.SetUp();
    station.dialogs.Say = nullptr;
    auto& port = station.halvern.ConMdiFrm.MSComm1;
    auto& raw = station.halvern.TerminalFrm.RawPacketLst;
    station.OpenTnc();
    std::vector<std::string> frames;
    for (const auto& line : lines) frames.push_back(test::FrameOf(line));
    std::size_t next = 0;
    for (auto _ : state) {
        port.Arrived(frames[next++ % frames.size()]);
        if (station.SentBy(port).size() != 1) return state.SkipWithError("not one frame out for a frame in");
        if (raw.Count() < MostRaw) continue;
        state.PauseTiming();
        raw.Clear();
        state.ResumeTiming();
    }
}

/// The same 1,000 stations over and over.
std::vector<std::string> Lines(const char* path, const char* info)
{
    std::vector<std::string> lines;
    for (int i = 0; i < 1000; ++i)
        lines.push_back("Q" + std::to_string(1000 + i) + ">APRS" + path + ":" + info + std::to_string(i));
    return lines;
}

void Digipeat(benchmark::State& state)
{
    FrameToFrame(state, Lines(",Q0OWN,WIDE2-1", "!4903.50N/07201.75W>088/036 on the road "));
}
BENCHMARK(Digipeat)->Unit(benchmark::kMicrosecond);

void Ack(benchmark::State& state)
{
    FrameToFrame(state, Lines(",WIDE2-1*", ":Q0OWN    :hello{"));
}
BENCHMARK(Ack)->Unit(benchmark::kMicrosecond);

/// A tick at which all own objects are due, with the TNC and the Internet open, among other stations on the map.
void ObjectTick(benchmark::State& state)
{
    test::Station station;
    station.SetUp();
    station.dialogs.Say = nullptr;
    auto& main = station.halvern.ConMdiFrm;
    auto& raw = station.halvern.TerminalFrm.RawPacketLst;
    station.OpenTnc();
    main.InternetSoc.Connect();
    const auto count = static_cast<int>(state.range(0));
    for (int i = 0; i < state.range(1); ++i) station.Hear("Q" + std::to_string(i) + ">APRS:!4903.50N/07201.75W-x");
    for (int i = 0; i < count; ++i) {
        main.MyObjectLst.Add(MyObjectRecord({.name = "OBJ" + std::to_string(i),
                                             .symbol = "/>",
                                             .place = {.position = {ZeroFilled(10 + i % 60, 2), "03", "50", "N", "072",
                                                                    ZeroFilled(i % 60, 2), "75", "W"},
                                                       .course = 88,
                                                       .speed = 36,
                                                       .comment = "in front"},
                                             .path = "WIDE2-2"},
                                            "092345"));
        main.TransmitLst.Add("D");
    }
    for (auto _ : state) {
        main.MyObjectTimer.SetInterval(60000);
        main.ObjectCycle = 0;
        main.MyObjectTimer.Tick();
        state.PauseTiming();
        const auto frames = static_cast<int>(station.SentBy(main.MSComm1).size());
        const auto lines = static_cast<int>(station.SentBy(main.InternetSoc).size());
        if (frames != count || lines != frames) state.SkipWithError("not every object went out");
        if (raw.Count() > MostRaw) raw.Clear();
        state.ResumeTiming();
    }
}
BENCHMARK(ObjectTick)->Args({500, 0})->Args({500, 10000})->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace halvern

BENCHMARK_MAIN();
