// SPDX-License-Identifier: GPL-3.0-or-later
#include "view/Geometry.h"

#include <algorithm>
#include <cmath>

#include "platform/Text.h"
#include "view/Ground.h"

namespace halvern {
namespace {

ViewFrame FrameOf(const MapState& view)
{
    return {view.MapLeftLon, view.MapTopLat, view.MapRightLon, view.MapBottomLat};
}

struct Halves {
    float lat, lon; ///< degrees
};

Halves HalvesOf(double range, float latitude)
{
    const double shrink = std::cos(latitude * MapPi / 180);
    if (shrink == 0) throw RuntimeFailure(failure::DivisionByZero, "Division by zero");
    return {static_cast<float>(range / 60), static_cast<float>((range * 4) / (shrink * 3 * 60))};
}

void WorkOutFrame(MapState& view)
{
    const auto half = HalvesOf(view.MapRange, view.MapCenterLat);
    if (!std::isfinite(view.MapCenterLat + half.lat) || !std::isfinite(view.MapCenterLon + half.lon))
        throw RuntimeFailure(failure::Overflow, "Overflow");
    view.MapHalfLat = half.lat;
    view.MapHalfLon = half.lon;
    view.MapTopLat = view.MapCenterLat + half.lat;
    view.MapBottomLat = view.MapCenterLat - half.lat;
    view.MapLeftLon = view.MapCenterLon + half.lon;
    view.MapRightLon = view.MapCenterLon - half.lon;
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
    const auto place = PlaceOfRow(stations.Row(0));
    GoToView(halvern, static_cast<float>(place.lat), static_cast<float>(place.lon), halvern.Map.MapRange);
}

void MoveByQuarters(Halvern& halvern, int west, int north)
{
    const auto& view = halvern.Map;
    MoveByDegrees(halvern, west * view.MapHalfLon / 2, north * view.MapHalfLat / 2);
}

void MoveByDegrees(Halvern& halvern, double west, double north)
{
    if (halvern.ConMdiFrm.BitMapMenu.Checked()) return;
    const auto& view = halvern.Map;
    const auto latitude = static_cast<float>(view.MapCenterLat + north);
    const auto longitude = static_cast<float>(view.MapCenterLon + west);
    GoToView(halvern, std::clamp(latitude, -FurthestLat, FurthestLat), std::remainder(longitude, 360.0F),
             view.MapRange);
}

void ZoomAbout(Halvern& halvern, double latitude, double longitude, int closer)
{
    auto& ladder = halvern.ConMdiFrm.ScaleCombo;
    if (!ladder.Visible() || !ladder.Enabled() || ladder.Selected() < 0) return;
    const int step = std::clamp(ladder.Selected() + closer, 0, ladder.Count() - 1);
    if (step == ladder.Selected()) return;
    const auto& view = halvern.Map;
    const double range = RangeOfStep(ladder.Row(step));
    const double north = (latitude - view.MapCenterLat) / view.MapHalfLat;
    const double west = (longitude - view.MapCenterLon) / view.MapHalfLon;
    const float furthest = std::max(FurthestLat, std::abs(view.MapCenterLat));
    float middleLat = view.MapCenterLat, middleLon = view.MapCenterLon;
    if (north != 0) middleLat = static_cast<float>(latitude - north * HalvesOf(range, middleLat).lat);
    middleLat = std::clamp(middleLat, -furthest, furthest);
    if (west != 0) middleLon = static_cast<float>(longitude - west * HalvesOf(range, middleLat).lon);
    GoToView(halvern, middleLat, std::remainder(middleLon, 360.0F), range);
}

void ZoomAboutMiddle(Halvern& halvern, int closer)
{
    ZoomAbout(halvern, halvern.Map.MapCenterLat, halvern.Map.MapCenterLon, closer);
}

void ResizeMap(Halvern& halvern)
{
    auto& form = halvern.MapFrm;
    for (auto* surface : {&form.Map1, &form.Pic1}) surface->SetSize(form.ClientWidth(), form.ClientHeight());
    halvern.ConMdiFrm.Toolbar1.SetEnabled(form.Place().state != Place::Minimised);
}

} // namespace halvern
