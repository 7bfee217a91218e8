// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/FirstMap.h"

#include "engine/ProcessPacket.h"
#include "map/BitmapMap.h"
#include "map/DosMap.h"
#include "map/UsgsMap.h"
#include "platform/Text.h"
#include "protocol/PacketHeader.h"
#include "transmit/OwnTexts.h"
#include "view/Geometry.h"

namespace halvern {
namespace {

constexpr const char* Done = "n";

/// The first drawing of a run. Setting the geometry selects a step of the ladder, but the selectors are still being
/// filled, so that this click draws nothing.
void DrawFirstMap(Halvern& halvern)
{
    auto& main = halvern.ConMdiFrm;
    if (!main.BitMapMenu.Checked()) {
        halvern.Map.MapSyncPending = true;
        MapSetGeometry(halvern);
    }
    if (!halvern.Engine.ConfigLoaded) {
        DrawDosMap(halvern, halvern.ProgramFolder + R"(\DOSMAPS\USA.MAP)");
        return;
    }
    if (main.DosMapMenu.Checked()) ShowDosMap(halvern, DosMapTexts::FirstActivation);
    if (main.UsgsMapMenu.Checked()) DrawUsgsMap(halvern);
    if (main.BitMapMenu.Checked()) DrawBitmapMap(halvern);
}

} // namespace

void FirstMapActivation(Halvern& halvern)
{
    auto& form = halvern.MapFrm;
    if (form.Activated == Done) return;
    const auto& setUp = halvern.SetUpfrm;
    const auto call = OwnCallOf(setUp);
    const auto path = PathOrNothing(setUp.UnPath.Text());
    // The first line of a run closes its range information with a slash: the row shows where the comment begins.
    auto position = PacketLine(call, NormalDestination, path, OwnPosition(setUp, OwnPhg(setUp, "/")));
    auto status = PacketLine(call, NormalDestination, path, OwnStatus(setUp));
    halvern.HeardFrm.HeardGrid.SetCell(1, 0, call);
    halvern.HeardFrm.HeardGrid.SetCell(1, 1, "0");
    try {
        DrawFirstMap(halvern);
    } catch (const RuntimeFailure& failure) {
        halvern.Tell(failure); // the station itself needs no map
    }
    if (halvern.Engine.Ended) return;
    ProcessPacket(halvern, position, "MAP");
    ProcessPacket(halvern, status, "MAP");
    halvern.Map.MapSyncPending = false;
    form.Activated = Done;
}

} // namespace halvern
