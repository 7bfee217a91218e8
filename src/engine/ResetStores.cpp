// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/ResetStores.h"

#include "engine/HeardCount.h"
#include "engine/ProcessPacket.h"
#include "protocol/PacketHeader.h"
#include "state/Rows.h"

namespace halvern {
namespace {

/// The own line that made a row 0, without its time. An empty store gives a line that ProcessPacket rejects.
std::string OwnLineFrom(const Halvern& halvern, const List& store)
{
    const auto row = store.Count() > 0 ? store.Row(0) : std::string{};
    const auto payload = std::string(Columns(row, positionRow::Type, 1)) + std::string(positionRow::FromLatitude(row));
    return PacketLine(TrimmedRight(stationRow::Call(row)), halvern.Engine.OwnDest,
                      PathOrNothing(halvern.SetUpfrm.UnPath.Text()), payload);
}

void DestroySymbols(Halvern& halvern)
{
    halvern.MapFrm.SymPic.CutToFirst();
    halvern.MapFrm.SymLbl.CutToFirst();
    halvern.MapFrm.SymPic.Alter(0, [](PictureSprite& sprite) { sprite.file.clear(); });
}

void ClearStationLists(Halvern& halvern)
{
    halvern.PositionFrm.PosLst.Clear();
    halvern.StatusFrm.StatusLst.Clear();
    halvern.DigiFrm.DigiLst.Clear();
    halvern.DxFrm.ResourceLst.Clear();
}

void ClearObjectsAndMessages(Halvern& halvern)
{
    auto& main = halvern.ConMdiFrm;
    auto& messages = halvern.MessageFrm;
    main.MyObjectTimer.Stop();
    messages.Timer1.Stop();
    for (List* list : std::initializer_list<List*>{&main.MyObjectLst, &main.TransmitLst, &messages.OutMsg,
                                                   &messages.MsgToYouLst, &messages.TrafficLst, &messages.BullLst})
        list->Clear();
}

void ClearRawRowsAndCounts(Halvern& halvern)
{
    halvern.TerminalFrm.RawPacketLst.Clear();
    ClearHeardGrid(halvern);
    halvern.Engine.ReviewMode = false;
    halvern.ConMdiFrm.RestoreMenu.SetEnabled(false);
}

} // namespace

void ResetStores(Halvern& halvern, std::string_view caller)
{
    auto position = OwnLineFrom(halvern, halvern.PositionFrm.PosLst);
    auto status = OwnLineFrom(halvern, halvern.StatusFrm.StatusLst);
    const bool review = caller == "ImportLog" || caller == "Search1" || caller == "RestoreMenu";
    DestroySymbols(halvern);
    ClearStationLists(halvern);
    if (caller != "JustOk") ClearObjectsAndMessages(halvern);
    if (caller != "JustOk" && !review) ClearRawRowsAndCounts(halvern);
    ProcessPacket(halvern, position, "CLEAR");
    ProcessPacket(halvern, status, "CLEAR");
}

void StartStoresAgain(Halvern& halvern, std::string_view caller, const std::string& limit)
{
    halvern.Note({"Lists", "All lists were emptied and start again: they hold no more than " + limit + "."});
    ResetStores(halvern, caller);
}

} // namespace halvern
