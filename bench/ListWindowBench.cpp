// SPDX-License-Identifier: GPL-3.0-or-later
// A list of 32,000 rows on the screen: what sorting all of it costs, and what a row costs that comes to a sorted list.
// Off the screen with QT_QPA_PLATFORM=offscreen.
#include <benchmark/benchmark.h>

#include <QtWidgets>
#include <random>

#include "forms/StoreWindows.h"
#include "support/Station.h"

namespace halvern {
namespace {

constexpr int Rows = 32000;

/// The window of the positions, full.
struct Full {
    Full()
    {
        station.SetUp();
        station.Hear("Q0OWN>APRS:!4049.14N/07308.41W-"); // distances count from there
        auto& rows = station.halvern.PositionFrm.PosLst;
        for (int i = rows.Count(); i < Rows; ++i) rows.Add(Row(i));
        window.reset(MakePositionWindow(station.halvern));
        view = window->findChild<RowsView*>();
        window->resize(700, 400);
        window->show();
        QCoreApplication::processEvents();
    }
    std::string Row(int number)
    {
        char row[120];
        std::snprintf(row, sizeof row, "Q%06d  ! %02u%02u%02uz%02u%02u.%02uN/%03u%02u.%02uW-bench", number, //
                      1 + next() % 28, next() % 24, next() % 60, next() % 90, next() % 60, next() % 100, next() % 180,
                      next() % 60, next() % 100);
        return row;
    }
    std::mt19937 next{5};
    test::Station station;
    std::unique_ptr<QWidget> window;
    RowsView* view = nullptr;
};

/// @param column  of the window: 1 the call, 2 the age, 3 the distance
void SortAll(benchmark::State& state, int column)
{
    Full full;
    auto order = Qt::AscendingOrder;
    for (auto _ : state) {
        full.view->sortByColumn(column, order);
        order = order == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
    }
}
BENCHMARK_CAPTURE(SortAll, call, 1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(SortAll, age, 2)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(SortAll, distance, 3)->Unit(benchmark::kMillisecond);

/// So many reports of known stations, told together as a busy second's are; the column is -1 for the order of arrival.
void Reports(benchmark::State& state)
{
    Full full;
    auto& rows = full.station.halvern.PositionFrm.PosLst;
    full.view->sortByColumn(static_cast<int>(state.range(0)), Qt::AscendingOrder);
    for (auto _ : state) {
        for (int i = 0; i < state.range(1); ++i) {
            const int at = static_cast<int>(full.next() % Rows);
            rows.Replace(at, full.Row(at));
        }
        full.view->Rows().Apply();
    }
    state.SetItemsProcessed(state.iterations() * state.range(1));
}
BENCHMARK(Reports)->ArgsProduct({{-1, 3}, {1, 110}})->Unit(benchmark::kMicrosecond);

void Filter(benchmark::State& state)
{
    Full full;
    auto* sorted = static_cast<SortedRows*>(full.view->model());
    bool on = false;
    for (auto _ : state) sorted->FilterBy((on = !on) ? "77" : "");
}
BENCHMARK(Filter)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace halvern

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
