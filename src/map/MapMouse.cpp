// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/MapMouse.h"

#include <algorithm>

#include "platform/Text.h"
#include "state/Rows.h"
#include "view/Geometry.h"
#include "view/Plotting.h"

namespace halvern {
namespace {

constexpr double FirstStepIn = 4096;

/// One step of the ladder closer. The closest range halves to what is no step, and so jumps to the top of the ladder.
double StepCloser(double range)
{
    if (range == WidestRange) return FirstStepIn;
    return range / 2 == 0 ? 1 : range / 2;
}

void DrawDragBox(Halvern& halvern, float x, float y)
{
    auto& view = halvern.Map;
    auto& map = halvern.MapFrm.Map1;
    map.Mode = DrawMode::Invert;
    map.Box(view.ZoomStartX, view.ZoomStartY, view.ZoomLastX, view.ZoomLastY, colour::BrightWhite);
    view.ZoomLastX = x;
    view.ZoomLastY = y;
    map.Mode = DrawMode::Copy;
    map.Box(view.ZoomStartX, view.ZoomStartY, x, y, colour::BrightWhite);
}

} // namespace

bool PanMode(const Halvern& halvern)
{
    return halvern.MapFrm.Map1.MousePointer() == Pointer::CrossHair;
}

void MapMouseDown(Halvern& halvern, MouseButton button, double x, double y)
{
    if (!PanMode(halvern)) return;
    auto& view = halvern.Map;
    KeepView(view);
    view.MapCenterLat = static_cast<float>(y);
    view.MapCenterLon = static_cast<float>(x);
    if (button == MouseButton::Right) {
        view.MapRange = std::min(view.MapRange * 2, WidestRange);
        view.ZoomDown = view.ZoomMoved = false;
        return;
    }
    view.ZoomDown = true;
    view.ZoomStartX = view.ZoomLastX = static_cast<float>(x);
    view.ZoomStartY = view.ZoomLastY = static_cast<float>(y);
}

void MapMouseMove(Halvern& halvern, double x, double y)
{
    const auto lon = static_cast<float>(x), lat = static_cast<float>(y);
    halvern.ConMdiFrm.StatusBar2.SetCaption(PlainFloat(lat) + " " + PlainFloat(-lon));
    if (!halvern.Map.ZoomDown) return;
    halvern.Map.ZoomMoved = true;
    DrawDragBox(halvern, lon, lat);
}

void MapMouseUp(Halvern& halvern, MouseButton, double x, double y)
{
    auto& view = halvern.Map;
    if (view.ZoomDown && view.ZoomMoved) {
        GoToView(halvern, (view.ZoomStartY + static_cast<float>(y)) / 2, (view.ZoomStartX + static_cast<float>(x)) / 2,
                 StepCloser(view.MapRange));
    } else if (PanMode(halvern)) {
        view.MapSyncPending = true;
        MapSetGeometry(halvern);
    }
    view.ZoomDown = view.ZoomMoved = false;
}

void EndGesture(Halvern& halvern)
{
    const auto& view = halvern.Map;
    if (view.ZoomDown)
        ShowView(halvern, view.PrevCenterLat, view.PrevCenterLon, view.PrevRange);
    else if (PanMode(halvern))
        halvern.ConMdiFrm.PanMapMenu.Click();
}

void SymbolMouseDown(Halvern& halvern, int index, MouseButton button)
{
    const auto& station = PlotRecord(halvern, index);
    if (PanMode(halvern)) return MapMouseDown(halvern, button, station.Lon, station.Lat);
    if (button != MouseButton::Right) return;
    TurnMenuTo(halvern, index);
    halvern.ConMdiFrm.Pop1Menu.Click();
}

void SymbolMouseMove(Halvern& halvern, int index)
{
    const auto& station = PlotRecord(halvern, index);
    MapMouseMove(halvern, station.Lon, station.Lat);
}

void SymbolMouseUp(Halvern& halvern, int index, MouseButton button)
{
    const auto& station = PlotRecord(halvern, index);
    if (PanMode(halvern)) MapMouseUp(halvern, button, station.Lon, station.Lat);
}

void TurnMenuTo(Halvern& halvern, int index)
{
    const char symbol = ColumnAt(halvern.PositionFrm.PosLst.Row(index), positionRow::Code);
    halvern.Map.PopStation = index;
    halvern.ConMdiFrm.WXInfo.SetVisible(symbol == 'W' || symbol == '_');
}

} // namespace halvern
