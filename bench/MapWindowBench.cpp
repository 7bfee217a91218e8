// SPDX-License-Identifier: GPL-3.0-or-later
// The shipped line maps from file to picture, in points a second, as a window of 1366 by 768 pixels shows them.
#include <benchmark/benchmark.h>

#include "map/DosMap.h"
#include "map/Geometry.h"
#include "platform/qt/MapPainter.h"
#include "support/Station.h"

namespace halvern {
namespace {

const QSize Window(1366, 768);

/// A program without a screen, with a real painter on both surfaces.
struct Maps {
    Maps()
    {
        for (auto* surface : {&form.Map1, &form.Pic1}) surface->SetSize(Window.width(), Window.height());
    }
    void Show(double range, const std::string& file)
    {
        halvern.Map.MapRange = range;
        halvern.Map.MapCenterLat = 40;
        halvern.Map.MapCenterLon = 75;
        halvern.Map.MapSyncPending = false;
        MapSetGeometry(halvern);
        DrawDosMap(halvern, file);
    }
    SimulatedTime time;
    NotedDialogs dialogs;
    DiskFiles files;
    Halvern halvern{{time, dialogs, files}, test::DataFolder()};
    MapForm& form = halvern.MapFrm;
    MapPainter map{form.Map1}, twin{form.Pic1};
};

/// Counts what a map draws.
class Counter final : public Painter {
public:
    explicit Counter(Surface& surface) : surface(surface) { surface.Attach(*this); }
    ~Counter() override { surface.Detach(*this); }
    void Clear() override {}
    void SetFrame(const ViewFrame&) override {}
    void Point(double, double, int) override { ++points; }
    void LineTo(double, double, int) override { ++points; }
    void Box(double, double, double, double, int) override {}
    void Circle(double, double, double, int) override {}
    void Picture(const std::string&, int, int) override {}
    void Keep(Painter&) override {}
    std::int64_t points = 0;

private:
    Surface& surface;
};

void FileToPicture(benchmark::State& state, const char* name, double range, double ratio)
{
    Maps maps;
    const auto file = test::DataFolder() + "/dosmaps/" + name;
    std::int64_t points = 0;
    {
        const Counter counter(maps.form.Map1);
        maps.Show(range, file);
        points = counter.points;
    }
    for (auto round : state) {
        maps.Show(range, file);
        benchmark::DoNotOptimize(maps.map.Image(Window, ratio).constBits());
    }
    state.counters["points"] = static_cast<double>(points);
    state.counters["points/s"] =
        benchmark::Counter(static_cast<double>(points), benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK_CAPTURE(FileToPicture, WholeWorld, "world.map", 8000, 1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FileToPicture, WholeWorldAtDoubleScale, "world.map", 8000, 2)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FileToPicture, Country, "usa.map", 1024, 1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FileToPicture, WorldSeenFromNear, "world.map", 64, 1)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace halvern

BENCHMARK_MAIN();
