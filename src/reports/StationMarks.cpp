// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/StationMarks.h"

#include "platform/Text.h"
#include "state/Rows.h"
#include "view/Plotting.h"

namespace halvern {
namespace {

constexpr std::string_view DeleteMode = "delete";

bool HasStations(Halvern& halvern)
{
    if (halvern.PositionFrm.PosLst.Count() > 0) return true;
    halvern.Tell(Icon::None, "You have to either open up the Map window or open the TNC or the Sound Card Port first.");
    return false;
}

void ListCalls(const List& stations, List& shown)
{
    shown.Clear();
    for (int i = 0; i < stations.Count(); ++i) shown.Add(stationRow::Call(stations.Row(i)));
}

void OpenMarks(Halvern& halvern, std::string_view mode, const char* title, const char* help)
{
    auto& form = halvern.PosAlarmFrm;
    form.PosAlarmMode = mode;
    form.SetCaption(title);
    form.HelpLbl.SetCaption(help);
    form.AlarmOpt.SetVisible(mode != DeleteMode);
    ListCalls(halvern.PositionFrm.PosLst, form.AlarmLst);
    form.Show();
}

} // namespace

void OpenAlarm(Halvern& halvern)
{
    if (HasStations(halvern))
        OpenMarks(
            halvern, "alarm", "Position Alarm",
            "Alarm On marks the selected stations, Alarm Off unmarks them. Several stations can be chosen with the "
            "Shift or the Control key.");
}

void OpenDelete(Halvern& halvern)
{
    OpenMarks(
        halvern, DeleteMode, "Position Delete",
        "This takes a station or an object off your own map only. An object that you transmit is removed from all "
        "maps by Kill Object.");
}

void MarkStations(Halvern& halvern)
{
    auto& form = halvern.PosAlarmFrm;
    auto& stations = halvern.PositionFrm.PosLst;
    const bool taking = form.PosAlarmMode == DeleteMode;
    const char state = taking ? mark::Deleted : form.AlarmOpt.On(0) ? mark::Alarm : mark::None;
    const auto own = CallField(halvern.Engine.OwnCall);
    bool marked = false, ownChosen = false;
    for (int i = 0; i < form.AlarmLst.Count(); ++i) {
        if (!form.AlarmLst.Marked(i)) continue;
        const auto& call = form.AlarmLst.Row(i);
        const int index = stations.Find(call); // the stores may have been emptied since the form came up
        ownChosen |= call == own;
        if (call == own || index == NotFound || IsGone(stations.Row(index))) continue;
        stations.Replace(index, WithMark(stations.Row(index), state));
        if (taking) HideSymbol(halvern, index);
        marked = true;
    }
    if (ownChosen) halvern.Tell(Icon::None, "You cannot select this stations callsign");
    if (marked) return form.Unload();
    if (!ownChosen)
        halvern.Tell(Icon::None, "You have to select at least one call sign. Or the station you have selected is "
                                 "inactive. Either it has not been heard from for 2 hours or more or you have deleted "
                                 "it.");
}

void OpenTrack(Halvern& halvern)
{
    if (!HasStations(halvern)) return;
    ListCalls(halvern.PositionFrm.PosLst, halvern.PosTrackFrm.TrackLst);
    halvern.PosTrackFrm.Show();
}

void TrackStation(Halvern& halvern)
{
    auto& form = halvern.PosTrackFrm;
    auto& stations = halvern.PositionFrm.PosLst;
    const int index = form.TrackLst.Selected() < 0 ? NotFound : stations.Find(form.TrackLst.Text());
    if (index == NotFound || ColumnAt(stations.Row(index), positionRow::State) == mark::Killed)
        return halvern.Tell(Icon::None, "You have to select a call sign. Or the station is inactive. It has not be "
                                        "heared from in 2 hours or more.");
    stations.Replace(index, WithMark(stations.Row(index), form.TrackOpt.On(0) ? mark::Track : mark::None));
    form.Unload();
}

} // namespace halvern
