// SPDX-License-Identifier: GPL-3.0-or-later
// Lines a second through the gate alone, each way, with 10,000 stations heard on radio; ports simulated.
#include <benchmark/benchmark.h>

#include <memory>

#include "platform/Text.h"
#include "relay/Igate.h"
#include "support/Station.h"

namespace halvern {
namespace {

constexpr int Heard = 10000;
constexpr int NotedWrites = 10000; ///< the simulated ports keep what they are given

std::string Call(int number)
{
    std::string call = "Q";
    for (int i = 0; i < 4; ++i, number /= 26) call += static_cast<char>('A' + number % 26);
    return call + "-" + std::to_string(1 + number % 15);
}

/// A gate that has heard stations of 0 to 2 hops, every second of them with a position.
std::unique_ptr<test::Station> GateStation()
{
    auto station = std::make_unique<test::Station>();
    station->SetUp();
    station->dialogs.Say = nullptr;
    station->OpenGate();
    auto& halvern = station->halvern;
    halvern.SetUpfrm.IgateHopOpt.Select(2);
    for (int i = 0; i < 20; ++i) halvern.SetUpfrm.IgateBudsCombo.Add("BUDDY-" + std::to_string(i));
    for (int i = 0; i < Heard; ++i) {
        const std::string paths[] = {"", ",Q0DIG*", ",Q0DIG*,Q0DIX*"};
        const std::string line = Call(i) + ">APRS" + paths[i % 3] + ":!4903.50N/07201.75W-x";
        if (i % 2 == 0) station->Hear(line);
        RfGateStep(halvern, line);
    }
    return station;
}

template <class Step> void Gate(benchmark::State& state, Step step, const std::vector<std::string>& lines)
{
    auto station = GateStation();
    auto& main = station->halvern.ConMdiFrm;
    std::size_t next = 0;
    std::int64_t out = 0;
    for (auto _ : state) {
        out += WentOut(step(station->halvern, lines[next++ % lines.size()])) ? 1 : 0;
        if (next % NotedWrites != 0) continue;
        state.PauseTiming();
        station->SentBy(main.InternetSoc);
        station->SentBy(main.MSComm1);
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations());
    state.counters["out"] = static_cast<double>(out) / static_cast<double>(state.iterations());
}

/// A line of each of the 10,000 stations, in a mixed order.
std::vector<std::string> Lines(const std::string& middle, const std::function<std::string(int)>& info)
{
    std::vector<std::string> lines;
    for (int i = 0; i < Heard; ++i) lines.push_back(Call(i * 7919 % Heard) + middle + info(i));
    return lines;
}

std::string Report(int)
{
    return "!4903.50N/07201.75W>088/036 on the road";
}

std::string MessageTo(int addressee)
{
    return ":" + CallField(Call(addressee)) + ":hello{1";
}

void ReportsToInternet(benchmark::State& state)
{
    Gate(state, RfGateStep, Lines(">APRS,Q0DIG*,WIDE2-1:", Report));
}
BENCHMARK(ReportsToInternet);

void MessagesToInternet(benchmark::State& state)
{
    Gate(state, RfGateStep, Lines(">APRS,Q0DIG*,WIDE2-1:", MessageTo));
}
BENCHMARK(MessagesToInternet);

/// What a whole server sends: nearly all of it stays there.
void FeedToRadio(benchmark::State& state)
{
    Gate(state, InternetGateStep,
         Lines(">APRS,TCPIP*,qAC,T2X:", [](int i) { return i % 10 == 0 ? MessageTo(Heard + i) : Report(i); }));
}
BENCHMARK(FeedToRadio);

/// Four in nine go out, half of these with the sender's position behind; for the others the sender is near, or the
/// addressee too far away.
void MessagesToRadio(benchmark::State& state)
{
    auto lines = Lines(">APRS,TCPIP*,qAC,T2X:", [](int i) { return MessageTo(i * 31 % Heard); });
    Gate(state, InternetGateStep, lines);
}
BENCHMARK(MessagesToRadio);

} // namespace
} // namespace halvern

BENCHMARK_MAIN();
