// SPDX-License-Identifier: GPL-3.0-or-later
// The map in a real window: from a map file to the finished picture, and stations laid out anew above it. Off the
// screen with QT_QPA_PLATFORM=offscreen.
#include <benchmark/benchmark.h>

#include <QtWidgets>

#include "forms/Windows.h"
#include "map/DosMap.h"
#include "map/DosMapFile.h"
#include "platform/Text.h"
#include "platform/qt/screen/MapPainter.h"
#include "support/Station.h"
#include "view/Geometry.h"
#include "view/Plotting.h"

namespace halvern {
namespace {

constexpr QSize Screen(1366, 768);

/// A station with its windows on the screen, the map as large as they come.
struct Shown {
    Shown()
    {
        station.SetUp();
        station.dialogs.Say = nullptr;
        halvern.MapFrm.Show();
        windows.Main().resize(Screen);
        windows.Main().show();
        auto* map = windows.WindowOf(halvern.MapFrm);
        if (auto* frame = qobject_cast<QMdiSubWindow*>(map->parentWidget())) frame->showMaximized();
        QCoreApplication::processEvents();
    }
    test::Station station;
    Halvern& halvern = station.halvern;
    Windows windows{halvern};
};

struct PointCount final : MapLines {
    void Start(double, double, int) override { ++points; }
    void LineTo(double, double, int) override { ++points; }
    std::int64_t points = 0;
};

std::int64_t PointsOf(const Halvern& halvern, const std::string& path)
{
    PointCount count;
    std::string format;
    ReadMapLines(halvern.Outside.files.Read(path).value_or(""), count, format);
    return count.points;
}

/// Reads, parses and draws a map until its picture stands; the argument is the screen's ratio.
/// @param range  the view's, so that the whole map is in it
void FileToPicture(benchmark::State& state, const char* name, double range, float latitude, float longitude)
{
    test::Station station;
    auto& halvern = station.halvern;
    MapPainter shown(halvern.MapFrm.Map1);
    MapPainter twin(halvern.MapFrm.Pic1);
    station.halvern.MapFrm.Map1.Detach(station.map);
    station.halvern.MapFrm.Pic1.Detach(station.picture);
    halvern.Map.MapRange = range;
    halvern.Map.MapCenterLat = latitude;
    halvern.Map.MapCenterLon = longitude;
    const auto path = halvern.ProgramFolder + "\\dosmaps\\" + name;
    for (auto _ : state) {
        MapSetGeometry(halvern);
        DrawDosMap(halvern, path);
        benchmark::DoNotOptimize(shown.Image(Screen, static_cast<double>(state.range(0))).constBits());
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * PointsOf(halvern, path));
}
BENCHMARK_CAPTURE(FileToPicture, world, "world.map", 8000, 1.0F, 1.0F)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FileToPicture, usa, "usa.map", 1024, 38.5F, 96.0F)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FileToPicture, globe, "globe.map", 8000, 1.0F, 1.0F)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

void Crowd(Shown& shown, int stations)
{
    shown.halvern.Map.MapRange = 4096;
    shown.halvern.Map.MapCenterLat = 20;
    shown.halvern.Map.MapCenterLon = 20;
    MapSetGeometry(shown.halvern);
    for (int i = 0; i < stations; ++i)
        shown.station.Hear("Q" + std::to_string(i) + ">APRS,WIDE1-1:!" + ZeroFilled(10 + i % 60, 2) +
                           ZeroFilled(i % 60, 2) + ".10N/" + ZeroFilled(1 + i % 100, 3) + ZeroFilled(i / 7 % 60, 2) +
                           ".75W>");
    QCoreApplication::processEvents();
}

/// Every station placed anew, and the whole window painted into a picture.
void ReplotInAWindow(benchmark::State& state)
{
    Shown shown;
    Crowd(shown, static_cast<int>(state.range(0)));
    auto* map = shown.windows.WindowOf(shown.halvern.MapFrm);
    for (auto _ : state) {
        ReplotStations(shown.halvern);
        benchmark::DoNotOptimize(map->grab());
    }
}
BENCHMARK(ReplotInAWindow)->Arg(10000)->Arg(31000)->Unit(benchmark::kMillisecond);

/// A place and two steps of the ladder: one whose map is large, and one to come from.
struct Way {
    double latitude, longitude;
    int step, from;
};

/// What the operator does to change the view, from the click until the window is painted. Milliseconds; `drawing` is
/// the painting alone.
/// @param arg  stations
void ChangeView(benchmark::State& state, const Way& way, bool pan)
{
    Shown shown;
    auto& halvern = shown.halvern;
    Crowd(shown, static_cast<int>(state.range(0)));
    auto* view = shown.windows.Main().findChild<QWidget*>("MapFrm.Map1");
    auto& range = halvern.ConMdiFrm.ScaleCombo;
    halvern.ConMdiFrm.DosMapMenu.SetChecked(true);
    halvern.ConMdiFrm.PanMapMenu.Click();
    const auto clickAt = [&](double latitude, double longitude) {
        halvern.MapFrm.Map1.OnMouseDown(MouseButton::Left, longitude, latitude);
        halvern.MapFrm.Map1.OnMouseUp(MouseButton::Left, longitude, latitude);
    };
    clickAt(way.latitude, way.longitude);
    range.Click(way.step);
    view->repaint();
    double drawing = 0, aside = 0;
    for (auto _ : state) {
        if (!pan) range.Click(way.from);
        view->repaint();
        aside = 1 - aside;
        QElapsedTimer clock;
        clock.start();
        if (pan)
            clickAt(way.latitude + aside, way.longitude + aside);
        else
            range.Click(way.step);
        const auto ready = clock.nsecsElapsed();
        view->repaint();
        const auto painted = clock.nsecsElapsed();
        drawing += static_cast<double>(painted - ready) / 1e6;
        state.SetIterationTime(static_cast<double>(painted) / 1e9);
    }
    state.counters["drawing"] = benchmark::Counter(drawing, benchmark::Counter::kAvgIterations);
    state.SetLabel(halvern.ConMdiFrm.dMapTxt.Text());
}
constexpr Way World{20, 20, 0, 1}, Globe{20, 20, 2, 1}, Region{60, 30, 5, 4};
#define CHANGE_VIEW(name, way, pan)                                                                                    \
    BENCHMARK_CAPTURE(ChangeView, name, way, pan)                                                                      \
        ->Arg(10000)                                                                                                   \
        ->Arg(31900)                                                                                                   \
        ->UseManualTime()                                                                                              \
        ->Unit(benchmark::kMillisecond)
CHANGE_VIEW(range_of_the_world, World, false);
CHANGE_VIEW(range_of_the_globe, Globe, false);
CHANGE_VIEW(range_of_a_region, Region, false);
CHANGE_VIEW(pan_over_the_world, World, true);
CHANGE_VIEW(pan_over_the_globe, Globe, true);
CHANGE_VIEW(pan_over_a_region, Region, true);

} // namespace
} // namespace halvern

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
