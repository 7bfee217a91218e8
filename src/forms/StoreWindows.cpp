// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/StoreWindows.h"

#include <QtWidgets>

#include "engine/ProcessPacket.h"
#include "forms/FilterLine.h"
#include "forms/Glyphs.h"
#include "forms/Layouts.h"
#include "forms/StationMenu.h"
#include "forms/Tints.h"
#include "platform/Text.h"
#include "protocol/UtcTime.h"
#include "state/Rows.h"
#include "view/Ground.h"

namespace halvern {

const std::vector<RowColumn> PositionColumns{
    {1, 9, "Call", "Call sign, or name of an object"},
    {10, 1, "W", "Watch: A alarm, T track, X killed object, D deleted"},
    {11, 1, "T", "Type of the report"},
    {12, 7, "Time", "Day, hour and minute of the report, UTC"},
    {19, 8, "Latitude", "Latitude: degrees, minutes and hundredths"},
    {27, 1, "O", "Symbol table, or the overlay character"},
    {28, 9, "Longitude", "Longitude: degrees, minutes and hundredths"},
    {37, 1, "S", "Symbol code"},
    {38, 0, "Comment", "Comment and extensions, as received"},
};

namespace {

const std::vector<RowColumn> StatusColumns{
    {1, 9, "Call", "Call sign of the station"},
    {11, 0, "Status", "The information field, as received"},
};
const std::vector<RowColumn> DigiColumns{
    {1, 9, "Call", "Call sign of the station"},
    {11, 0, "Path", "The path by which it was heard last"},
};
const std::vector<RowColumn> GateColumns{
    {int(gateRow::Time.first), int(gateRow::Time.count), "Time", "Day, hour, minute and second, UTC"},
    {int(gateRow::Way.first), int(gateRow::Way.count), "Way", "Where the packet was to go"},
    {int(gateRow::Call.first), int(gateRow::Call.count), "From", "The station that sent it"},
    {int(gateRow::Name.first), int(gateRow::Name.count), "For", "Whom a message is for, or the name of an object"},
    {int(gateRow::Outcome.first), 0, "What became of it", "What gate or digipeater did with it, and why not"},
};

/// A window that is filled by one widget.
QWidget* Filled(QWidget* content, QWidget* window)
{
    auto* layout = new QVBoxLayout(window);
    layout->setContentsMargins({});
    layout->addWidget(content);
    window->setFocusProxy(content);
    return window;
}

// --- what only the window of the positions says ----------------------------------------------------------------------

constexpr double Unknown = std::numeric_limits<double>::infinity();
constexpr int AgesMs = 15000; ///< how often they are shown afresh

/// How old a report is, the newest lowest. The same report has the same number at any time.
double AgeOrder(const Halvern& halvern, std::string_view row)
{
    const auto now = UtcNow(halvern.Outside.clock);
    const auto age = MinutesSince(positionRow::Stamp(row), now);
    return age ? *age - static_cast<double>(SecondsOf(now) / 60) : Unknown;
}

QString AgeText(const Halvern& halvern, std::string_view row)
{
    const auto age = MinutesSince(positionRow::Stamp(row), UtcNow(halvern.Outside.clock));
    return age ? Shown(AgeInWords(*age)) : QString();
}

/// What a number of the way from the own station to a row's is; Unknown as long as the own place is.
template <class Number> double OnTheWay(const Halvern& halvern, std::string_view row, Number number)
{
    const auto own = OwnPlace(halvern);
    return own ? number(*own, PlaceOfRow(row)) : Unknown;
}

/// The columns of the store, and behind the call what is reckoned from them.
std::vector<RowColumn> StationColumns(const Halvern& halvern)
{
    auto columns = PositionColumns;
    const auto distance = [&halvern](std::string_view row) { return OnTheWay(halvern, row, GroundDistance); };
    const auto bearing = [&halvern](std::string_view row) { return OnTheWay(halvern, row, GroundBearing); };
    const auto distanceText = [distance](std::string_view row) {
        const double miles = distance(row);
        return miles == Unknown ? QString() : QString::number(miles, 'f', miles < 99.95 ? 1 : 0).rightJustified(5);
    };
    const auto bearingText = [bearing](std::string_view row) {
        const double degrees = bearing(row);
        return degrees == Unknown ? QString()
                                  : QString("%1\u00b0 %2").arg(qRound(degrees) % 360, 3).arg(CompassPoint(degrees));
    };
    columns.insert(
        columns.begin() + 1,
        {{1, 9, "Age", "Since the report", [&halvern](std::string_view row) { return AgeText(halvern, row); },
          [&halvern](std::string_view row) { return AgeOrder(halvern, row); }},
         {1, 5, "nm", "Distance from the own station, nautical miles", distanceText, distance},
         {1, 7, "Bearing", "From the own station", bearingText, bearing}});
    const auto symbol = [](std::string_view row) { return static_cast<double>(ColumnAt(row, positionRow::Code)); };
    columns.insert(columns.begin(), {1, 1, "", "Symbol", [](std::string_view) { return QString(); }, symbol});
    return columns;
}

// --- raw packets -----------------------------------------------------------------------------------------------------

/// Where the time of the arrival begins behind a raw row that bears it, 0-based; else the row's end.
std::size_t PacketEnd(std::string_view row)
{
    const auto length = weatherRow::ArrivalLength;
    const auto colon = PositionOf(row, ':');
    if (colon == 0 || row.size() < colon + length || !BearsArrival(Columns(row, colon + 1))) return row.size();
    const auto arrival = row.substr(row.size() - length);
    return std::ranges::all_of(arrival, [](char c) { return c >= '0' && c <= '9'; }) ? row.size() - length : row.size();
}

QString ArrivalText(std::string_view row)
{
    const auto arrival = Shown(row.substr(PacketEnd(row)));
    return arrival.isEmpty() ? arrival : arrival.mid(2, 2) + ':' + arrival.mid(4, 2) + ':' + arrival.mid(6, 2);
}

QString PacketText(std::string_view row)
{
    return Shown(row.substr(0, PacketEnd(row)));
}

/// @param callOf  where the rows have their station
QWidget* StoreWindow(Halvern& halvern, List& store, const RowsLook& look, const CallOfRow& callOf)
{
    auto* window = new QWidget;
    auto* rows = MakeRows(store, look, window);
    ServeStations(rows, halvern, callOf);
    return Filled(rows, window);
}

} // namespace

RowsView* MakeRows(List& list, const RowsLook& look, QWidget* parent)
{
    auto* view = new RowsView(list, look, parent);
    BindCommon(view, list);
    view->setToolTip({}); // it would cover the rows under the pointer
    auto* find = new QShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_F, parent, {}, {}, Qt::WidgetWithChildrenShortcut);
    QObject::connect(find, &QShortcut::activated, view, &RowsView::AskForFilter); // from the fields beside it too
    return view;
}

QWidget* MakePositionWindow(Halvern& halvern)
{
    auto* window = StoreWindow(halvern, halvern.PositionFrm.PosLst, {StationColumns(halvern), true}, CallInFront);
    auto* rows = window->findChild<RowsView*>();
    ShowStationSymbols(rows, halvern.ProgramFolder);
    rows->RefreshEvery(AgesMs);
    return window;
}

QWidget* MakeStatusWindow(Halvern& halvern)
{
    return StoreWindow(halvern, halvern.StatusFrm.StatusLst, {StatusColumns, true}, CallInFront);
}

QWidget* MakeDigiWindow(Halvern& halvern)
{
    return StoreWindow(halvern, halvern.DigiFrm.DigiLst, {DigiColumns, true}, CallInFront);
}

QWidget* MakeHeardWindow(Halvern& halvern)
{
    auto* window = new QWidget;
    auto* view = new GridView(halvern.HeardFrm.HeardGrid, window);
    BindCommon(view, halvern.HeardFrm.HeardGrid);
    view->setToolTip({});
    return Filled(view, window);
}

QWidget* MakeTerminalWindow(Halvern& halvern)
{
    const auto arrival = [](std::string_view row) { return LeadingNumber(row.substr(PacketEnd(row))); };
    const RowsLook look{
        {{1, 8, "UTC", "When it arrived, for weather and sentences", ArrivalText, arrival, true},
         {1, 0, "Packet", "The line as it was received; messages, weather, objects, status and telemetry are tinted",
          PacketText}},
        false,
        true};
    auto* window = StoreWindow(halvern, halvern.TerminalFrm.RawPacketLst, look, SourceOf);
    window->findChild<RowsView*>()->Rows().ShowTints(TintOfPacket);
    return window;
}

QWidget* MakeDxWindow(Halvern& halvern)
{
    const RowsLook look{{{1, 0, "Spot or resource", "The information field, as received"}}, true, true};
    auto* window = new QWidget;
    return Filled(MakeRows(halvern.DxFrm.ResourceLst, look, window), window);
}

QWidget* MakeGateWindow(Halvern& halvern)
{
    auto* window = new QWidget;
    auto* layout = new QVBoxLayout(window);
    auto* call = WideFor(9, BindField(halvern.GateFrm.CallTxt, window));
    OfferClear(call);
    layout->addWidget(Beside({LabelFor(call, halvern.GateFrm.CallTxt), call}, window));
    auto* rows = MakeRows(halvern.GateFrm.GateLst, {GateColumns, false, true}, window);
    ServeStations(rows, halvern, [](std::string_view row) { return std::string(TrimmedRight(gateRow::Call(row))); });
    layout->addWidget(rows);
    return window;
}

} // namespace halvern
