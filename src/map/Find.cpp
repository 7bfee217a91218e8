// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/Find.h"

#include "platform/Text.h"
#include "protocol/PositionText.h"
#include "state/Rows.h"
#include "view/Geometry.h"
#include "view/Phg.h"

namespace halvern {
namespace {

constexpr double CloseRange = 2;

/// A call's row in a store, or nothing.
std::string RowOf(const KeyedList& store, const std::string& call)
{
    const int index = store.Find(call);
    return index == NotFound ? std::string{} : store.Row(index);
}

std::string PhgInWords(const List& directions, std::string_view row)
{
    const auto code = SentPhg(row);
    if (code.empty()) return "Station is not sending PHG information.";
    const auto phg = ReadPhg(directions, code);
    return PlainNumber(phg.power) + " Watts " + PlainNumber(phg.height) + " HAAT " +
           PlainFloat(static_cast<float>(phg.gain)) + " Gain " + PlainNumber(phg.direction) +
           " Ant. Direction Zero for OMNI ";
}

/// Every raw packet of the call, and no list where there is none.
void ShowRawPackets(Halvern& halvern, std::string_view call)
{
    auto& shown = halvern.FindFrm.RawPacCombo;
    const auto& raw = halvern.TerminalFrm.RawPacketLst;
    const auto beginning = std::string(call) + ">";
    shown.Clear();
    for (int i = 0; i < raw.Count(); ++i)
        if (raw.Row(i).starts_with(beginning)) shown.Add(raw.Row(i));
    if (shown.Count() > 0) shown.Preselect(0);
    shown.SetVisible(shown.Count() > 0);
}

} // namespace

void FindCallSign(Halvern& halvern)
{
    auto& dialogs = halvern.Outside.dialogs;
    const auto answer = dialogs.Input(
        "Enter Call Sign only if you want to look for a Specific Call Sign. Add -SSID if Required. If you want to "
        "Search for a Call Sign Regardless of -SSID then Enter CallSign-* \r\nNote Find Call Sign is case sensitive.",
        "Find Call Sign");
    if (!answer || answer->empty()) return;
    if (Holds(*answer, "*")) {
        if (!Holds(*answer, "-"))
            return halvern.Tell(Icon::None, "The Syntax when using the wild card find is the following: callsign-* "
                                            "You forgot to Enter the '-'.");
        halvern.Map.FindCall = *answer;
        return dialogs.ShowModal(halvern.FindFoundFrm);
    }
    halvern.Map.FindCall = CallField(*answer);
    if (halvern.PositionFrm.PosLst.Find(halvern.Map.FindCall) == NotFound)
        return halvern.Tell(Icon::None, "Call Sign " + *answer + " Not Found.");
    dialogs.ShowModal(halvern.FindFrm);
}

void ListFound(Halvern& halvern)
{
    auto& found = halvern.FindFoundFrm.CallSignLst;
    const auto& stations = halvern.PositionFrm.PosLst;
    const auto beginning = SplitAt(halvern.Map.FindCall, '-').front();
    found.Clear();
    for (int i = 0; i < stations.Count(); ++i)
        if (const auto call = stationRow::Call(stations.Row(i)); call.starts_with(beginning)) found.Add(call);
}

void PickFound(Halvern& halvern)
{
    auto& form = halvern.FindFoundFrm;
    if (form.CallSignLst.Selected() < 0) return;
    halvern.Map.FindCall = CallField(form.CallSignLst.Text());
    form.Hide();
    halvern.Outside.dialogs.ShowModal(halvern.FindFrm);
}

void ShowFound(Halvern& halvern)
{
    auto& form = halvern.FindFrm;
    const auto& field = halvern.Map.FindCall;
    const std::string call(TrimmedRight(field));
    form.FindPosTxt.SetText(RowOf(halvern.PositionFrm.PosLst, field));
    const auto status = RowOf(halvern.StatusFrm.StatusLst, field);
    form.FindStatusTxt.SetText(status.empty() ? "No Status Packet For " + call + " Heard." : status);
    const auto path = RowOf(halvern.DigiFrm.DigiLst, field);
    form.FindDigiTxt.SetText(stationRow::Report(path) == "None" ? "Packets Sent Direct No Digis Used." : path);
    form.PhgTxt.SetText(PhgInWords(halvern.SetUpfrm.PhgDirLst, form.FindPosTxt.Text()));
    ShowRawPackets(halvern, call);
}

void GoToFound(Halvern& halvern)
{
    const auto row = RowOf(halvern.PositionFrm.PosLst, halvern.Map.FindCall);
    if (row.empty()) return; // the stores were emptied while the form was up
    GoToView(halvern, static_cast<float>(LatTextToDegrees(positionRow::Latitude(row))),
             static_cast<float>(LonTextToDegrees(positionRow::Longitude(row))), CloseRange);
}

} // namespace halvern
