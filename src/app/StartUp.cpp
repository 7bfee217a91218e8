// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/StartUp.h"

#include <algorithm>

#include "config/Fonts.h"
#include "config/Settings.h"
#include "config/SetupRules.h"
#include "history/Snapshot.h"
#include "map/MapKind.h"
#include "platform/Text.h"
#include "protocol/UtcTime.h"
#include "view/ChildWindows.h"

namespace halvern {
namespace {

void EndAfter(Halvern& halvern, const std::string& fault)
{
    halvern.Tell(Icon::Stop, fault);
    EndProgram(halvern);
}

/// The heading of the first hour: the moment at which the program came up.
void PrepareHeardGrid(Halvern& halvern)
{
    const auto& start = halvern.Engine.StartTime;
    auto& grid = halvern.HeardFrm.HeardGrid;
    grid.SetCell(0, 0, "Call Sign");
    grid.SetCell(0, 1, ZeroFilled(start.day, 2) + "/" + ZeroFilled(start.hour, 2) + ":" + ZeroFilled(start.minute, 2));
}

/// The selectors of the kind of map in hand. @return false where that kind has no map, which ends the program.
bool PrepareMapKind(Halvern& halvern)
{
    if (halvern.Engine.ConfigLoaded)
        SettleMapKind(halvern);
    else
        ShowMapSelectors(halvern);
    if (!halvern.ConMdiFrm.BitMapMenu.Checked() || ListBitmaps(halvern)) return true;
    EndAfter(halvern, BitmapsMissing(halvern));
    return false;
}

void StartConfigured(Halvern& halvern)
{
    halvern.SetUpfrm.IgateOpt.SetEntryEnabled(1, true);
    halvern.SetUpfrm.Load();
    TakeSettings(halvern);
    TakeOwnCallAndAlias(halvern);
    if (const auto fault = MapDataFault(halvern); !fault.empty()) return EndAfter(halvern, fault);
    SetWindowOn(halvern, 1, true);
}

void StartFirstRun(Halvern& halvern)
{
    auto& setUp = halvern.SetUpfrm;
    if (!halvern.Outside.files.Exists(halvern.ProgramFolder + "\\dosmaps\\usa.map"))
        return EndAfter(halvern, DosMapsMissing(halvern));
    setUp.TabSaveCmd.SetEnabled(false);
    setUp.TabCancelCmd.SetEnabled(false); // the way out is OK with valid data
    halvern.Outside.dialogs.ShowModal(setUp);
}

void ClosePorts(MainForm& main)
{
    for (SerialPort* port : {&main.MSComm1, &main.WeatherCom})
        if (port->IsOpen()) port->Close();
    for (Socket* socket : {&main.SoundSoc, &main.InternetSoc, &main.Psk63Soc})
        if (socket->Connected() || socket->Connecting()) socket->Disconnect();
    if (main.GpsCom.IsOpen()) main.GpsCom.Close();
}

void CloseFiles(EngineState& engine)
{
    engine.Log.reset();
    engine.LogOpen = false;
}

void UnloadForms(Halvern& halvern)
{
    for (Form* form : std::initializer_list<Form*>{
             &halvern.AddPathFrm, &halvern.DigiFrm,      &halvern.DxFrm,       &halvern.FindFoundFrm, &halvern.FindFrm,
             &halvern.FontFrm,    &halvern.MapFrm,       &halvern.HeardFrm,    &halvern.Hist,         &halvern.JustSym,
             &halvern.KillMsgFrm, &halvern.MessageFrm,   &halvern.PositionFrm, &halvern.QueryFrm,     &halvern.SetUpfrm,
             &halvern.StatusFrm,  &halvern.TelemetryFrm, &halvern.TerminalFrm, &halvern.WeatherFrm,   &halvern.GateFrm,
             &halvern.ConMdiFrm})
        form->Unload();
}

/// A run that ended without cleaning up may have left lists that were put aside. They are not read by themselves, and
/// the end of this run takes them away: the operator has to know.
void NoteKeptState(Halvern& halvern)
{
    if (!SnapshotStands(halvern)) return;
    halvern.Note({"Start", "Lists that were put aside in an earlier run are still in " +
                               halvern.Outside.files.Shown(halvern.ProgramFolder) +
                               ": Pos.txt and thirteen more files. To bring them back, import any log and then choose "
                               "File, Restore. Copy them first if you are not sure: Pos.txt goes when Halvern ends."});
}

} // namespace

void StartProgram(Halvern& halvern)
{
    halvern.All.Dispatch([&] { halvern.ConMdiFrm.Show(); });
}

void LoadMainWindow(Halvern& halvern)
{
    auto& engine = halvern.Engine;
    halvern.Map.MapBusy = true; // the first click of the range selector draws nothing
    halvern.SetUpfrm.MyAlias = NoAlias;
    engine.OwnDest = NormalDestination;
    halvern.ConMdiFrm.FrmState.fill("False");
    SetDesignFonts(halvern);
    ReadSettings(halvern);
    if (!PrepareMapKind(halvern)) return;
    engine.LogOpen = false;
    engine.ReviewMode = false;
    engine.StartTime = UtcNow(halvern.Outside.clock);
    PrepareHeardGrid(halvern);
}

void ActivateMainWindow(Halvern& halvern)
{
    auto& startDone = halvern.ConMdiFrm.StartDone;
    if (startDone == "N") return;
    startDone = "N"; // at once: what comes up now activates this window again
    halvern.Engine.ConfigLoaded ? StartConfigured(halvern) : StartFirstRun(halvern);
    if (halvern.Engine.ConfigLoaded) halvern.SetUpfrm.TabCancelCmd.SetEnabled(true);
    NoteKeptState(halvern);
}

void ToggleWindow(Halvern& halvern, int window)
{
    SetWindowOn(halvern, window, !halvern.ConMdiFrm.FrmMenu(window).Checked());
}

void EndProgram(Halvern& halvern)
{
    if (halvern.Engine.Ended) return;
    halvern.Engine.Ended = true;
    ClosePorts(halvern.ConMdiFrm);
    halvern.Outside.files.Remove(halvern.ProgramFolder + "\\Pos.txt");
    CloseFiles(halvern.Engine);
    UnloadForms(halvern);
}

} // namespace halvern
