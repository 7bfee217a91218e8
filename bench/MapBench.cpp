// SPDX-License-Identifier: GPL-3.0-or-later
// Line maps from the file's bytes to the picture, in points a second, and the stations above them.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>

#include "map/DosMap.h"
#include "map/DosMapFile.h"
#include "support/Station.h"
#include "view/Geometry.h"
#include "view/Plotting.h"

namespace halvern {
namespace {

constexpr int Polylines = 2000;
constexpr int PointsEach = 250;
constexpr int Points = Polylines * PointsEach;

std::string HeadOf(const std::string& format)
{
    return "75\r\n180\r\n200\r\n40\r\n64\r\n1024\r\n1024\r\n" + format + "\r\n";
}

/// A made-up map of half a million points: spirals all over the country.
std::string PairsMap()
{
    auto map = HeadOf("ASCII");
    for (int line = 0; line < Polylines; ++line) {
        map += "0,0," + std::to_string(1 + line % 15) + ",line " + std::to_string(line) + "\r\n";
        for (int i = 0; i < PointsEach; ++i)
            map += std::to_string(1000 + line * 12 + i % 17) + "," + std::to_string(100 + line * 7 % 9000 + i) + "\r\n";
    }
    return map + "0,-1\r\n";
}

std::string PackedMap()
{
    auto map = HeadOf("LineFormat");
    for (int line = 0; line < Polylines; ++line) {
        map += std::to_string(1 + line % 15) + ",";
        for (int i = 0; i < PointsEach; ++i)
            map.append(
                {static_cast<char>(32 + line % 90), static_cast<char>(32 + i % 90), static_cast<char>(32 + i % 60)});
        map += "\r\n";
    }
    return map + "-1\r\n";
}

class Counted final : public MapLines {
public:
    void Start(double x, double y, int) override { sum += x + y; }
    void LineTo(double x, double y, int) override { sum += x - y; }
    double sum = 0;
};

void Parse(benchmark::State& state, const std::string& map)
{
    std::string format;
    for (auto _ : state) {
        Counted lines;
        if (ReadMapLines(map, lines, format) != MapFileEnd::Marker) return state.SkipWithError("damaged");
        benchmark::DoNotOptimize(lines.sum);
    }
    state.SetItemsProcessed(state.iterations() * Points);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(map.size()));
}

/// From the file on the disk to two surfaces that note every operation.
void Draw(benchmark::State& state, const std::string& map)
{
    test::TemporaryFolder folder;
    folder.Put("dosmaps/some.map", map);
    test::Station station(folder.Path());
    GoToView(station.halvern, 40, 100, 1024);
    for (auto _ : state) {
        if (DrawDosMap(station.halvern, folder.Path() + "\\dosmaps\\some.map") != "AOK")
            return state.SkipWithError("not drawn");
        state.PauseTiming();
        station.map.Take();
        station.picture.Take();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * Points);
}

/// The map of the world that the program brings, parsed alone.
void ParseWorld(benchmark::State& state)
{
    const auto bytes = DiskFiles{}.Read(test::DataFolder() + "/dosmaps/world.map");
    if (!bytes) return state.SkipWithError("no map of the world");
    std::string format;
    for (auto _ : state) {
        Counted lines;
        benchmark::DoNotOptimize(ReadMapLines(*bytes, lines, format));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes->size()));
}

std::unique_ptr<test::Station> Crowd(const test::TemporaryFolder& folder, int count)
{
    folder.Put("symbol.gif", std::string("GIF89a\x10\0\x10\0", 10));
    auto station = std::make_unique<test::Station>(folder.Path());
    GoToView(station->halvern, 40, 100, 1024);
    for (int i = 0; i < count; ++i) {
        station->halvern.PositionFrm.PosLst.Add("row " + std::to_string(i));
        NewSymbol(station->halvern, i, "!", folder.Path() + "/symbol.gif", "Q" + std::to_string(i), 10 + i % 60,
                  60 + i % 100);
    }
    return station;
}

void ReplotTheCrowd(benchmark::State& state)
{
    const test::TemporaryFolder folder;
    const auto station = Crowd(folder, static_cast<int>(state.range(0)));
    for (auto _ : state) ReplotStations(station->halvern);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void MoveOne(benchmark::State& state)
{
    const test::TemporaryFolder folder;
    const auto station = Crowd(folder, static_cast<int>(state.range(0)));
    int i = 0;
    for (auto _ : state) {
        PlaceSymbol(station->halvern, i, 40 + i % 10, 73);
        i = (i + 7919) % static_cast<int>(state.range(0));
    }
    state.SetItemsProcessed(state.iterations());
}

BENCHMARK_CAPTURE(Parse, pairs, PairsMap())->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Parse, packed, PackedMap())->Unit(benchmark::kMillisecond);
BENCHMARK(ParseWorld)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Draw, pairs, PairsMap())->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Draw, packed, PackedMap())->Unit(benchmark::kMillisecond);
BENCHMARK(ReplotTheCrowd)->Arg(1000)->Arg(32000)->Unit(benchmark::kMicrosecond);
BENCHMARK(MoveOne)->Arg(1000)->Arg(32000);

} // namespace
} // namespace halvern

BENCHMARK_MAIN();
