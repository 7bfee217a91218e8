// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/StoreWindows.h"

#include <QtWidgets>

#include "forms/Layouts.h"
#include "state/Rows.h"

namespace halvern {

const std::vector<RowColumn> PositionColumns{
    {1, 9, "Call", "Call sign, or name of an object"},
    {10, 1, "W", "Watch: A alarm, T track, X killed object, D deleted"},
    {11, 1, "T", "Type of the report"},
    {12, 7, "Time", "Day, hour and minute of the report, UTC"},
    {19, 8, "Latitude", "Degrees, minutes and hundredths"},
    {27, 1, "O", "Symbol table, or the overlay character"},
    {28, 9, "Longitude", "Degrees, minutes and hundredths"},
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

QWidget* StoreWindow(List& store, const RowsLook& look)
{
    auto* window = new QWidget;
    return Filled(MakeRows(store, look, window), window);
}

} // namespace

RowsView* MakeRows(List& list, const RowsLook& look, QWidget* parent)
{
    auto* view = new RowsView(list, look, parent);
    BindCommon(view, list);
    view->setToolTip({}); // it would cover the rows under the pointer
    return view;
}

QWidget* MakePositionWindow(Halvern& halvern)
{
    return StoreWindow(halvern.PositionFrm.PosLst, {PositionColumns, true});
}

QWidget* MakeStatusWindow(Halvern& halvern)
{
    return StoreWindow(halvern.StatusFrm.StatusLst, {StatusColumns, true});
}

QWidget* MakeDigiWindow(Halvern& halvern)
{
    return StoreWindow(halvern.DigiFrm.DigiLst, {DigiColumns, true});
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
    const RowsLook look{{{1, 0, "Packet", "The line as it was received"}}, false, true};
    return StoreWindow(halvern.TerminalFrm.RawPacketLst, look);
}

QWidget* MakeDxWindow(Halvern& halvern)
{
    const RowsLook look{{{1, 0, "Spot or resource", "The information field, as received"}}, true, true};
    return StoreWindow(halvern.DxFrm.ResourceLst, look);
}

QWidget* MakeGateWindow(Halvern& halvern)
{
    auto* window = new QWidget;
    auto* layout = new QVBoxLayout(window);
    auto* call = WideFor(9, BindField(halvern.GateFrm.CallTxt, window));
    call->setClearButtonEnabled(true);
    layout->addWidget(Beside({LabelFor(call, halvern.GateFrm.CallTxt), call}, window));
    layout->addWidget(MakeRows(halvern.GateFrm.GateLst, {GateColumns, false, true}, window));
    return window;
}

} // namespace halvern
