// SPDX-License-Identifier: GPL-3.0-or-later
// Lines a second through ProcessPacket: recorded traffic into empty stores, and invented traffic with many stations
// known.
#include <benchmark/benchmark.h>

#include <memory>

#include "LoggedStation.h"
#include "engine/ProcessPacket.h"
#include "engine/ResetStores.h"
#include "platform/Text.h"

static long allocations = 0;
#pragma GCC diagnostic ignored "-Wmismatched-new-delete" // both sides of the pair are ours

void* operator new(std::size_t size)
{
    ++allocations;
    if (void* const memory = std::malloc(size)) return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept
{
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace halvern {
namespace {

std::unique_ptr<test::Station> QuietStation()
{
    auto station = std::make_unique<test::Station>();
    station->SetUp();
    station->dialogs.Say = nullptr;
    return station;
}

std::string Call(int number)
{
    std::string call = "Q";
    for (int i = 0; i < 4; ++i, number /= 26) call += static_cast<char>('A' + number % 26);
    return call + "-" + std::to_string(1 + number % 15);
}

/// A report of a station; every third station moves from round to round.
std::string Report(int number, int round)
{
    const int hundredths = number % 3 == 0 ? round % 100 : 50;
    return Call(number) + ">APRS,WIDE1-1,WIDE2-1:!" + ZeroFilled(10 + number % 60, 2) + ZeroFilled(number % 60, 2) +
           "." + ZeroFilled(hundredths, 2) + "N/" + ZeroFilled(10 + number % 150, 3) + ZeroFilled(number / 7 % 60, 2) +
           ".75W>088/036 on the road";
}

void RecordedTraffic(benchmark::State& state)
{
    const auto lines = test::RecordedLines();
    if (lines.empty()) return state.SkipWithError("no recorded traffic on this machine");
    auto station = QuietStation();
    for (auto _ : state) {
        ResetStores(station->halvern, "Clear");
        for (const auto& recorded : lines) {
            std::string line = recorded;
            ProcessPacket(station->halvern, line, "TCPIP");
        }
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * lines.size()));
}
BENCHMARK(RecordedTraffic)->Unit(benchmark::kMillisecond);

void StationsKnown(benchmark::State& state)
{
    const int known = static_cast<int>(state.range(0));
    auto station = QuietStation();
    for (int i = 0; i < known; ++i) station->Hear(Report(i, 0), "TCPIP");
    station->halvern.TerminalFrm.RawPacketLst.Clear();
    int next = 0;
    int round = 1;
    long allocated = 0; // by the station alone, the line itself left aside
    for (auto _ : state) {
        std::string line = Report(static_cast<int>(static_cast<long>(next) * 7919 % known), round);
        const long before = allocations;
        ProcessPacket(station->halvern, line, "TCPIP");
        allocated += allocations - before;
        if (++next == known) next = 0, ++round;
        if (station->halvern.TerminalFrm.RawPacketLst.Count() < 30000) continue;
        state.PauseTiming();
        station->halvern.TerminalFrm.RawPacketLst.Clear();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations());
    state.counters["allocations"] = static_cast<double>(allocated) / static_cast<double>(state.iterations());
}
BENCHMARK(StationsKnown)->Arg(1000)->Arg(10000)->Arg(31990);

/// One kind of packet with 1,000 stations known.
void KindOfPacket(benchmark::State& state, const char* info, const char* dest = "APRS")
{
    auto station = QuietStation();
    for (int i = 0; i < 1000; ++i) station->Hear(Report(i, 0), "TCPIP");
    int next = 0;
    for (auto _ : state) {
        std::string line = Call(next++ % 1000) + ">" + dest + ",WIDE1-1,WIDE2-1:" + info;
        ProcessPacket(station->halvern, line, "TCPIP");
        if (station->halvern.TerminalFrm.RawPacketLst.Count() < 30000) continue;
        state.PauseTiming();
        station->halvern.TerminalFrm.RawPacketLst.Clear();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK_CAPTURE(KindOfPacket, mic_e, "`(_fn\"Oj/]on the road", "S32U6T");
BENCHMARK_CAPTURE(KindOfPacket, status, ">on the air");
BENCHMARK_CAPTURE(KindOfPacket, message, ":Q9ZZZ    :hello{12");
BENCHMARK_CAPTURE(KindOfPacket, message_to_us, ":Q0OWN    :hello{12");
BENCHMARK_CAPTURE(KindOfPacket, bulletin, ":BLN1     :meeting tonight");
BENCHMARK_CAPTURE(KindOfPacket, object, ";LEADER   *092345z4903.50N/07201.75W>088/036");
BENCHMARK_CAPTURE(KindOfPacket, weather, "_10090556c220s004g005t077r000p000P000h50b09900");
BENCHMARK_CAPTURE(KindOfPacket, sentence, "$GPRMC,210000,A,4049.14,N,07308.41,W,12.5,088.4,010100,,*7C");
BENCHMARK_CAPTURE(KindOfPacket, query, "?WX?");
BENCHMARK_CAPTURE(KindOfPacket, query_answered, "?APRSP");

} // namespace
} // namespace halvern

BENCHMARK_MAIN();
