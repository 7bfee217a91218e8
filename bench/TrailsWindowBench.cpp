// SPDX-License-Identifier: GPL-3.0-or-later
// The trails of 5,000 stations, 50 places each, all in view: drawn anew, and painted out of their picture as a frame
// is.
#include <benchmark/benchmark.h>

#include <QtWidgets>
#include <random>

#include "forms/Trails.h"
#include "support/Station.h"
#include "view/Geometry.h"

namespace halvern {
namespace {

constexpr int Stations = 5000;

struct TrailsInView {
    TrailsInView()
    {
        view.resize(1366, 768);
        station.halvern.MapFrm.SetClientSize(1366, 768);
        ShowView(station.halvern, 40, 75, 256);
        looks.Action(Look::Trails)->setChecked(true);
        const auto& frame = station.halvern.MapFrm.Map1.Frame();
        auto& rows = station.halvern.PositionFrm.PosLst;
        std::mt19937 random(7);
        const auto anywhere = [&](double low, double high) {
            return std::uniform_real_distribution<double>(low, high)(random);
        };
        for (int i = 0; i < Stations; ++i) {
            double lat = anywhere(frame.bottom, frame.top), lon = anywhere(frame.right, frame.left);
            for (std::size_t place = 0; place < Trails::MostPlaces; ++place) {
                lat += anywhere(-0.05, 0.05); // some four pixels
                lon += anywhere(-0.05, 0.05);
                char row[64];
                std::snprintf(row, sizeof row, "Q%-8d !010000z%02d%05.2fN/%03d%05.2fW>", i, int(lat),
                              (lat - int(lat)) * 59.99, int(lon), (lon - int(lon)) * 59.99);
                place == 0 ? rows.Add(row) : rows.Replace(i, row);
            }
        }
    }
    test::TemporaryFolder folder;
    test::Station station{folder.Path()};
    QWidget view;
    Looks looks{{}};
    Trails trails{station.halvern, looks, view};
};

void Frame(benchmark::State& state, bool anew)
{
    TrailsInView all;
    QImage screen(all.view.size(), QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&screen);
    for (auto _ : state) {
        if (anew) all.trails.Age();
        all.trails.Paint(painter, all.view.rect());
    }
    state.counters["places"] = static_cast<double>(Stations * all.trails.PlacesOf(0).size());
}

BENCHMARK_CAPTURE(Frame, Drawn, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Frame, Painted, false)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace halvern

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
