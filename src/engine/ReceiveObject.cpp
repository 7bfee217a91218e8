// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/ReceiveObject.h"

#include "engine/DecodePosition.h"
#include "engine/UpdateDigiLst.h"
#include "protocol/MyObject.h"
#include "protocol/UtcTime.h"
#include "state/Rows.h"
#include "transmit/OwnTexts.h"
#include "view/Plotting.h"

namespace halvern {
namespace {

/// Takes an own object out of the schedule when another station sends it. @return whether that was so.
bool HandOver(Halvern& halvern, const std::string& name)
{
    if (halvern.Engine.SourceCall == halvern.Engine.OwnCall) return false;
    auto& form = halvern.ConMdiFrm;
    for (int i = 0; i < form.MyObjectLst.Count(); ++i) {
        if (queuedRow::Name(form.MyObjectLst.Row(i)) != name) continue;
        form.MyObjectLst.Remove(i);
        if (i < form.TransmitLst.Count()) form.TransmitLst.Remove(i);
        if (form.MyObjectLst.Count() > 0) return true;
        form.MyObjectTimer.Stop();
        form.KillMyObjectsMenu.SetEnabled(false);
        form.StpTransObjectsMenu.SetEnabled(false);
        return true;
    }
    return false;
}

/// Draws the symbol anew, in the colours of a foreign object.
void DrawAsForeign(Halvern& halvern, const std::string& name, const std::string& info, float latitude, float longitude)
{
    const int index = halvern.PositionFrm.PosLst.Find(name);
    if (index == NotFound || index >= static_cast<int>(halvern.Map.StationPlot.size())) return;
    const auto file = halvern.Map.StationPlot[index].SymFile;
    NewSymbol(halvern, index, info, file, name, latitude, longitude);
}

/// A killed object stays in the store, unseen.
void Kill(Halvern& halvern, const std::string& name)
{
    auto& store = halvern.PositionFrm.PosLst;
    for (int i = 0; i < store.Count(); ++i) {
        const auto& row = store.Row(i);
        if (positionRow::Call(row) != name || ColumnAt(row, positionRow::State) == mark::Killed) continue;
        HideSymbol(halvern, i);
        store.Replace(i, WithMark(row, mark::Killed));
        return;
    }
}

void FileStatus(KeyedList& store, const std::string& field, const std::string& info, bool evenOverStatus)
{
    const int index = store.Find(field);
    if (index == NotFound)
        store.Add(field + " " + info);
    else if (evenOverStatus || ColumnAt(store.Row(index), stationRow::Report.first) != '>')
        store.Replace(index, field + " " + info);
}

} // namespace

void KeepPath(Halvern& halvern, const std::string& callField)
{
    const auto& path = halvern.Engine.PathText;
    UpdateDigiLst(halvern, callField, path.empty() ? "None" : path);
}

bool ReceiveObject(Halvern& halvern, const std::string& info)
{
    const auto name = CallField(queuedRow::Name(info));
    auto field = name;
    auto report = ";" + std::string(Columns(info, 12)) + " <" + halvern.Engine.SourceCall + ">";
    const bool handedOver = HandOver(halvern, name);
    float latitude = 0;
    float longitude = 0;
    if (!DecodePosition(halvern, field, report, latitude, longitude)) return false;
    if (field == PacNoGood) return true;
    if (handedOver) DrawAsForeign(halvern, name, info, latitude, longitude);
    KeepPath(halvern, name);
    if (ColumnAt(info, 11) == KilledObject) Kill(halvern, name);
    return true;
}

void ReceiveStatus(Halvern& halvern, const std::string& info)
{
    const auto field = CallField(halvern.Engine.SourceCall);
    auto& store = halvern.StatusFrm.StatusLst;
    if (halvern.Engine.SourceCall == OwnCallOf(halvern.SetUpfrm)) {
        const auto row = field + " >" + DayHourMinute(UtcNow(halvern.Outside.clock)) + "z" + info.substr(1);
        if (store.Count() == 0)
            store.Add(row);
        else
            store.Replace(0, row);
    } else {
        FileStatus(store, field, info, true);
    }
    KeepPath(halvern, field);
}

void ReceiveUnknownType(Halvern& halvern, const std::string& info)
{
    const auto field = CallField(halvern.Engine.SourceCall);
    FileStatus(halvern.StatusFrm.StatusLst, field, info, false);
    KeepPath(halvern, field);
}

} // namespace halvern
