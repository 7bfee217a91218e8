// SPDX-License-Identifier: GPL-3.0-or-later
#include "view/Geometry.h"

#include <algorithm>
#include <cmath>

#include "platform/Text.h"
#include "protocol/PositionText.h"

namespace halvern {
namespace {

ViewFrame FrameOf(const MapState& view)
{
    return {view.MapLeftLon, view.MapTopLat, view.MapRightLon, view.MapBottomLat};
}

void WorkOutFrame(MapState& view)
{
    const double shrink = std::cos(view.MapCenterLat * MapPi / 180);
    if (shrink == 0) throw RuntimeFailure(failure::DivisionByZero, "Division by zero");
    const auto halfLat = static_cast<float>(view.MapRange / 60);
    const auto halfLon = static_cast<float>((view.MapRange * 4) / (shrink * 3 * 60));
    if (!std::isfinite(view.MapCenterLat + halfLat) || !std::isfinite(view.MapCenterLon + halfLon))
        throw RuntimeFailure(failure::Overflow, "Overflow");
    view.MapHalfLat = halfLat;
    view.MapHalfLon = halfLon;
    view.MapTopLat = view.MapCenterLat + halfLat;
    view.MapBottomLat = view.MapCenterLat - halfLat;
    view.MapLeftLon = view.MapCenterLon + halfLon;
    view.MapRightLon = view.MapCenterLon - halfLon;
}

/// Shows the step of the range in the ladder. A range that is no step jumps to the top one: past the closest view the
/// widest is at hand again.
void ShowStep(MapState& view, List& ladder)
{
    int step = 0;
    while (step < ladder.Count() && RangeOfStep(ladder.Row(step)) != view.MapRange) ++step;
    if (step == ladder.Count()) {
        step = 0;
        view.MapRange = WidestRange;
    }
    ladder.Preselect(step);
}

} // namespace

double RangeOfStep(std::string_view step)
{
    return LeadingNumber(Columns(step, PositionOf(step, '=') + 2));
}

void MapSetGeometry(Halvern& halvern)
{
    auto& view = halvern.Map;
    Surface* const surfaces[] = {&halvern.MapFrm.Map1, &halvern.MapFrm.Pic1};
    for (auto* surface : surfaces) surface->Clear();
    WorkOutFrame(view);
    for (auto* surface : surfaces) surface->SetFrame(FrameOf(view));
    if (!view.MapSyncPending) return;
    ShowStep(view, halvern.ConMdiFrm.ScaleCombo);
    if (halvern.MapFrm.OnNewView) halvern.MapFrm.OnNewView();
}

void KeepView(MapState& view)
{
    view.PrevCenterLat = view.MapCenterLat;
    view.PrevCenterLon = view.MapCenterLon;
    view.PrevRange = view.MapRange;
}

void ShowView(Halvern& halvern, float latitude, float longitude, double range)
{
    auto& view = halvern.Map;
    view.MapCenterLat = latitude;
    view.MapCenterLon = longitude;
    view.MapRange = range;
    view.MapSyncPending = true;
    MapSetGeometry(halvern);
}

void GoToView(Halvern& halvern, float latitude, float longitude, double range)
{
    KeepView(halvern.Map);
    ShowView(halvern, latitude, longitude, range);
}

void GoHome(Halvern& halvern)
{
    const auto& stations = halvern.PositionFrm.PosLst;
    if (stations.Count() == 0) return; // the stores were emptied and the own station has not been heard since
    const std::string own = stations.Row(0);
    GoToView(halvern, static_cast<float>(LatTextToDegrees(Columns(own, 19, 8))),
             static_cast<float>(LonTextToDegrees(Columns(own, 28, 9))), halvern.Map.MapRange);
}

void MoveByQuarters(Halvern& halvern, int west, int north)
{
    constexpr float furthest = 84; // nearer to a pole a view is all width and no height
    if (halvern.ConMdiFrm.BitMapMenu.Checked()) return;
    const auto& view = halvern.Map;
    const float latitude = view.MapCenterLat + static_cast<float>(north) * view.MapHalfLat / 2;
    const float longitude = view.MapCenterLon + static_cast<float>(west) * view.MapHalfLon / 2;
    GoToView(halvern, std::clamp(latitude, -furthest, furthest), std::remainder(longitude, 360.0F), view.MapRange);
}

void ResizeMap(Halvern& halvern)
{
    auto& form = halvern.MapFrm;
    for (auto* surface : {&form.Map1, &form.Pic1}) surface->SetSize(form.ClientWidth(), form.ClientHeight());
    halvern.ConMdiFrm.Toolbar1.SetEnabled(form.Place().state != Place::Minimised);
}

} // namespace halvern
