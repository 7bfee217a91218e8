// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Handlers.h"

#include "app/Notices.h"
#include "app/StartUp.h"
#include "config/Fonts.h"
#include "config/Settings.h"
#include "config/SetupFields.h"
#include "config/SetupForm.h"
#include "config/SetupLists.h"
#include "engine/ResetStores.h"
#include "history/History.h"
#include "history/LogFiles.h"
#include "history/Snapshot.h"
#include "history/SymbolFilter.h"
#include "map/BitmapMap.h"
#include "map/Find.h"
#include "map/FirstMap.h"
#include "map/MapCommand.h"
#include "map/MapMouse.h"
#include "map/MapPicture.h"
#include "map/Redraw.h"
#include "map/Refresh.h"
#include "map/StationInfo.h"
#include "ports/GpsPort.h"
#include "ports/InternetPort.h"
#include "ports/Psk63Port.h"
#include "ports/SoundPort.h"
#include "ports/TncPort.h"
#include "ports/WeatherFile.h"
#include "ports/WeatherPort.h"
#include "relay/Beacon.h"
#include "relay/Decisions.h"
#include "relay/Igate.h"
#include "relay/KillMessages.h"
#include "relay/MailPaths.h"
#include "relay/Messages.h"
#include "relay/NetDecay.h"
#include "relay/ObjectForms.h"
#include "relay/Objects.h"
#include "relay/PathBuilder.h"
#include "reports/Query.h"
#include "reports/StationMarks.h"
#include "reports/WeatherGraph.h"
#include "view/ChildWindows.h"
#include "view/Geometry.h"
#include "view/Phg.h"

namespace halvern {
namespace {

void ConnectWindows(Halvern& halvern)
{
    auto& main = halvern.ConMdiFrm;
    main.OnLoad = [&] { LoadMainWindow(halvern); };
    main.OnActivate = [&] { ActivateMainWindow(halvern); };
    main.OnCloseBox = [&] { EndProgram(halvern); };
    main.EndApp.OnClick = [&] { EndProgram(halvern); };
    main.ClearMenu.OnClick = [&] { ResetStores(halvern, "ClearMenu"); };
    main.SetupMenu.OnClick = [&] { halvern.SetUpfrm.Show(); };
    main.FontMenu.OnClick = [&] { halvern.FontFrm.Show(); };
    halvern.FontFrm.FontOkCmd.OnClick = [&] { PickFormFont(halvern); };
    halvern.FontFrm.CancelCmd.OnClick = [&] { halvern.FontFrm.Hide(); };
    main.GetHelpMenu.OnClick = [&] { ShowHelp(halvern); };
    main.AboutHalvernMenu.OnClick = [&] { ShowAbout(halvern); };
    for (int window = 1; window <= ChildWindows; ++window) {
        main.FrmMenu(window).OnClick = [&halvern, window] { ToggleWindow(halvern, window); };
        ChildWindow(halvern, window).OnCloseBox = [&halvern, window] { ToggleWindow(halvern, window); };
    }
}

/// The copies for display follow their stores when their window changes its size.
void ConnectStoreWindows(Halvern& halvern)
{
    auto& h = halvern;
    h.PositionFrm.OnResize = [&] { h.PositionFrm.ShPosLst.CopyRows(h.PositionFrm.PosLst); };
    h.StatusFrm.OnResize = [&] { h.StatusFrm.ShStatusLst.CopyRows(h.StatusFrm.StatusLst); };
    h.DigiFrm.OnResize = [&] { h.DigiFrm.ShDigiLst.CopyRows(h.DigiFrm.DigiLst); };
    h.TerminalFrm.OnResize = [&] { h.TerminalFrm.ShRawPacketLst.CopyRows(h.TerminalFrm.RawPacketLst); };
    h.DxFrm.OnResize = [&] { h.DxFrm.ShResourceLst.CopyRows(h.DxFrm.ResourceLst); };
}

void ConnectStationTab(Halvern& halvern)
{
    auto& form = halvern.SetUpfrm;
    form.CallSignTxt.OnLeave = [&] { RaiseCase(form.CallSignTxt); };
    for (TextField* field : form.InOrder()) field->OnChange = [&form] { ShowPositionInPacketForm(form); };
    for (TextField* field : {&form.LatSigntxt, &form.LonSigntxt})
        field->OnChange = [&form, field] {
            RaiseCase(*field);
            ShowPositionInPacketForm(form);
        };
    form.SymbolCombo.OnClick = [&] { PickSymbol(halvern, form.SymbolCombo, form.OverlayChar); };
    form.UnPath.OnClick = [&] { ChoosePath(form); };
    form.UnPath.OnChange = [&] { RefuseTypedPath(halvern); };
    form.AddCom.OnClick = [&] { AddPath(halvern); };
    form.DeleteCom.OnClick = [&] { DeletePath(halvern); };
    form.AddGrp.OnClick = [&] { AddGroup(halvern); };
    form.ChangeGrp.OnClick = [&] { ChangeGroup(halvern); };
    form.DeleteGrp.OnClick = [&] { DeleteGroup(halvern); };
}

void ConnectOtherTabs(Halvern& halvern)
{
    auto& form = halvern.SetUpfrm;
    form.WxSourceOpt.OnClick = [&] { SwitchWeatherSource(form); };
    form.Drive1.OnClick = [&] { PickDrive(halvern); };
    form.Dir1.OnClick = [&] { PickFolder(form); };
    form.Dir1.OnPath = [&] { ListFolders(halvern); };
    form.File1.OnPath = [&] { ListFiles(halvern); };
    form.WxHelpCmd.OnClick = [&] { ShowHelpText(halvern, "WxHelp.txt"); };
    form.AprsMode.OnClick = [&] { SwitchMode(halvern); };
    form.GpsOpt.OnClick = [&] { SwitchGps(form); };
    form.MyAliasOpt.OnClick = [&] { SwitchAlias(halvern); };
    form.IgateOpt.OnClick = [&] { SwitchIgate(form); };
    form.IgateBIOpt.OnClick = [&] { SwitchIgateBothWays(form); };
    form.BudsAddCmd.OnClick = [&] { AddBuddy(halvern); };
    form.BudsDelCmd.OnClick = [&] { DeleteCaller(form.IgateBudsCombo); };
    form.WxAddCmd.OnClick = [&] { AddWeatherCaller(halvern); };
    form.WxDelCmd.OnClick = [&] { DeleteCaller(form.WxMessCombo); };
    form.IgateHelpCmd.OnClick = [&] { ShowHelpText(halvern, "IgateHelp.txt"); };
}

void ConnectSetUp(Halvern& halvern)
{
    auto& form = halvern.SetUpfrm;
    form.OnLoad = [&] { LoadSetUp(halvern); };
    form.OnActivate = [&] { ActivateSetUp(halvern); };
    form.OnCloseBox = [&] { CloseSetUp(halvern); };
    form.TabOkCmd.OnClick = [&] { AcceptSetUp(halvern); };
    form.TabCancelCmd.OnClick = [&] { CancelSetUp(halvern); };
    form.TabSaveCmd.OnClick = [&] { SaveSettings(halvern); };
    form.HelpCmd.OnClick = [&] { ShowHelp(halvern); };
    ConnectStationTab(halvern);
    ConnectOtherTabs(halvern);
}

void ConnectPorts(Halvern& halvern)
{
    auto& main = halvern.ConMdiFrm;
    main.PortTnc.OnClick = [&] { OpenCloseTnc(halvern); };
    main.MSComm1.OnReceive = [&](int code) { ReceiveFromTnc(halvern, code); };
    main.PortIp.OnClick = [&] { OpenCloseInternet(halvern); };
    main.InternetSoc.OnReceive = [&] { ReceiveFromInternet(halvern); };
    main.SoundCardMenu.OnClick = [&] { OpenCloseSound(halvern); };
    main.SoundSoc.OnReceive = [&] { ReceiveFromSound(halvern); };
    main.GpsMenu.OnClick = [&] { OpenCloseGps(halvern); };
    main.GpsTimer.OnTick = [&] { OpenGpsWhenDue(halvern); };
    main.GpsCom.OnReceive = [&](int code) { ReceiveFromGps(halvern, code); };
    main.WeatherMenu.OnClick = [&] { OpenCloseWeather(halvern); };
    main.WeatherCom.OnReceive = [&](int code) { ReceiveFromWeather(halvern, code); };
    main.WXSoft.OnTick = [&] { WeatherFileTick(halvern); };
    main.Psk63Menu.OnClick = [&] { OpenClosePsk63(halvern); };
    main.Psk63Soc.OnReceive = [&] { ReceiveFromPsk63(halvern); };
    main.Psk63Soc.OnDisconnect = [&] { Psk63HungUp(halvern); };
}

void ConnectTransmitter(Halvern& halvern)
{
    auto& main = halvern.ConMdiFrm;
    main.Timer2.OnTick = [&] { BeaconTick(halvern); };
    main.BeaconMenu.OnClick = [&] { BeaconNow(halvern); };
}

void ConnectGate(Halvern& halvern)
{
    auto& main = halvern.ConMdiFrm;
    main.IgateMessHold.OnTick = [&] { MessageHoldTick(halvern); };
    main.NetDecayTmr.OnTick = [&] { NetDecayTick(halvern); };
    main.GateMenu.OnClick = [&] { ToggleGateWindow(halvern); };
    halvern.GateFrm.OnCloseBox = [&] { ToggleGateWindow(halvern); };
    halvern.GateFrm.CallTxt.OnChange = [&] { FilterDecisions(halvern); };
}

void ConnectMap(Halvern& halvern)
{
    auto& form = halvern.MapFrm;
    form.OnActivate = [&] { FirstMapActivation(halvern); };
    form.OnResize = [&] { ResizeMap(halvern); };
    form.OnNewView = [&] { RangeSelected(halvern); };
    form.Map1.OnMouseDown = [&](MouseButton button, double x, double y) { MapMouseDown(halvern, button, x, y); };
    form.Map1.OnMouseMove = [&](double x, double y) { MapMouseMove(halvern, x, y); };
    form.Map1.OnMouseUp = [&](MouseButton button, double x, double y) { MapMouseUp(halvern, button, x, y); };
}

void ConnectMapMenu(Halvern& halvern)
{
    auto& main = halvern.ConMdiFrm;
    main.ScaleCombo.OnClick = [&] { RangeSelected(halvern); };
    main.HomeMenu.OnClick = [&] { GoHome(halvern); };
    main.RefreshMnu.OnClick = [&] { Refresh(halvern); };
    main.RefreshMapMenu.OnClick = [&] { halvern.MapFrm.Map1.Repaint(); };
    main.BitMapCombo.OnClick = [&] { PictureSelected(halvern); };
    main.PlotPhgFixedMenu.OnClick = [&] { TogglePhg(halvern, main.PlotPhgFixedMenu, 0); };
    main.PlotPhgMobileMenu.OnClick = [&] { TogglePhg(halvern, main.PlotPhgMobileMenu, 1); };
    main.PanMapMenu.OnClick = [&] { MapCommand(halvern, "PanMap"); };
    main.ZoomLastMenu.OnClick = [&] { MapCommand(halvern, "ZoomLast"); };
    main.ZoomUSAmenu.OnClick = [&] { MapCommand(halvern, "ZoomUSA"); };
    main.FindCallSignMenu.OnClick = [&] { MapCommand(halvern, "FindCallSign"); };
    main.PrintMapMenu.OnClick = [&] { MapCommand(halvern, "PrintMap"); };
    main.SaveBitMapMenu.OnClick = [&] { MapCommand(halvern, "SaveBitMap"); };
    main.UsgsMapMenu.OnClick = [&] { MapCommand(halvern, "UsgsMap"); };
    main.DosMapMenu.OnClick = [&] { MapCommand(halvern, "DosMap"); };
    main.BitMapMenu.OnClick = [&] { MapCommand(halvern, "BitMap"); };
    for (int i = main.Toolbar1Button.First(); i <= main.Toolbar1Button.Last(); ++i)
        main.Toolbar1Button(i).OnClick = [&halvern, &button = main.Toolbar1Button(i)] {
            MapCommand(halvern, button.Caption());
        };
}

void ConnectFind(Halvern& halvern)
{
    auto& found = halvern.FindFoundFrm;
    found.OnActivate = [&] { ListFound(halvern); };
    found.OkCmd.OnClick = [&] { PickFound(halvern); };
    found.CancelCmd.OnClick = [&] { found.Hide(); };
    auto& find = halvern.FindFrm;
    find.OnActivate = [&] { ShowFound(halvern); };
    find.GoToCmd.OnClick = [&] { GoToFound(halvern); };
    find.FindCloseCmd.OnClick = [&] { find.Hide(); };
    auto& main = halvern.ConMdiFrm;
    main.InfoMenu.OnClick = [&] { ShowInformation(halvern); };
    main.WXInfo.OnClick = [&] { ShowWeatherOf(halvern); };
    main.CgiFinduMenu.OnClick = [&] { LookUpOnTheWeb(halvern); };
    halvern.InformationFrm.CloseCmd.OnClick = [&] { halvern.InformationFrm.Hide(); };
    halvern.ChosePrinter.OkCmd.OnClick = [&] { PickPrinter(halvern); };
    halvern.ChosePrinter.CancelCmd.OnClick = [&] { halvern.ChosePrinter.Hide(); };
}

void ConnectMessages(Halvern& halvern)
{
    auto& form = halvern.MessageFrm;
    form.OnLoad = [&] { ShowMessageTab(form); };
    form.SSTab2.OnClick = [&] { ShowMessageTab(form); };
    form.MsgTxt.OnKey = [&](int& key) { TypeMessage(halvern, key); };
    form.Timer1.OnTick = [&] { RetryTick(halvern); };
    form.PSk63HelpCmd.OnClick = [&] { ShowHelpPage(halvern, "psk63.html"); };
    auto& main = halvern.ConMdiFrm;
    main.MailAddMenu.OnClick = [&] { AddMailPath(halvern); };
    main.MailChangeMenu.OnClick = [&] { ChangeMailPath(halvern); };
    main.MailDeleteMenu.OnClick = [&] { DeleteMailPath(halvern); };
    main.CLRMsgTxtMenu.OnClick = [&] { ClearMessageText(halvern); };
    main.KillMsg.OnClick = [&] { OpenKillMessages(halvern); };
    auto& kill = halvern.KillMsgFrm;
    kill.OnLoad = [&] { LoadKillMessages(halvern); };
    kill.OnUnload = [&] { form.Timer1.SetEnabled(true); };
    kill.OkCmd.OnClick = [&] { KillMarkedMessages(halvern); };
    kill.CancelCmd.OnClick = [&] { kill.Unload(); };
}

void ConnectPathBuilder(Halvern& halvern)
{
    auto& form = halvern.AddPathFrm;
    form.OnLoad = [&] { ClearPath(form); };
    form.PathOpt.OnClick = [&] { AllowUpdate(form); };
    form.PathCallTxt.OnChange = [&] { AllowUpdate(form); };
    form.PathUpDateCmd.OnClick = [&] { UpdatePath(halvern); };
    form.ClearCmd.OnClick = [&] { ClearPath(form); };
    form.CancelCmd.OnClick = [&] { CancelPath(form); };
    form.OkCmd.OnClick = [&] { AcceptPath(halvern); };
    form.OnCloseBox = [&] { CancelPath(form); };
}

void ConnectMyObjects(Halvern& halvern)
{
    auto& main = halvern.ConMdiFrm;
    main.CreateMyObjectsMenu.OnClick = [&] { CreateObject(halvern); };
    main.MoveMyObjMenu.OnClick = [&] { OpenMoveObject(halvern); };
    main.KillMyObjectsMenu.OnClick = [&] { OpenKillObject(halvern); };
    main.StpTransObjectsMenu.OnClick = [&] { OpenStopObject(halvern); };
    main.TakeTransmitMenu.OnClick = [&] { OpenTakeOver(halvern); };
    main.MyObjectTimer.OnTick = [&] { ObjectTick(halvern); };
    auto& kill = halvern.KillMyObjectsFrm;
    kill.OkCmd.OnClick = [&] { KillObject(halvern); };
    kill.CancelCmd.OnClick = [&] { kill.Unload(); };
    auto& stop = halvern.StpTransObjectsFrm;
    stop.OkCmd.OnClick = [&] { StopObject(halvern); };
    stop.ClearCmd.OnClick = [&] { stop.ObjectLst.Select(-1); };
    stop.CancelCmd.OnClick = [&] { stop.Unload(); };
    auto& take = halvern.TakeTransObjFrm;
    take.OkCmd.OnClick = [&] { TakeOverObject(halvern); };
    take.CancelCmd.OnClick = [&] { take.Unload(); };
}

void ConnectObjectFields(Halvern& halvern)
{
    auto& create = halvern.CreateObjectsFrm;
    create.OnLoad = [&] { ClearObject(create); };
    create.OkCmd.OnClick = [&] { AcceptObject(halvern); };
    create.SymbolCombo.OnClick = [&] { PickSymbol(halvern, create.SymbolCombo, create.OverlayChar); };
    auto& move = halvern.MoveMyObjectFrm;
    move.OkCmd.OnClick = [&] { MoveObject(halvern); };
    move.ObjectLst.OnClick = [&] { ShowPickedObject(move); };
    for (ObjectFieldsForm* form : std::initializer_list<ObjectFieldsForm*>{&create, &move}) {
        form->CancelCmd.OnClick = [form] { form->Unload(); };
        form->InstructionsCmd.OnClick = [&] { TellCourseAndSpeed(halvern); };
        for (TextField* field : {&form->LatSigntxt, &form->LonSigntxt})
            field->OnChange = [field] { RaiseCase(*field); };
    }
}

void ConnectMarks(Halvern& halvern)
{
    auto& main = halvern.ConMdiFrm;
    main.AlarmMenu.OnClick = [&] { OpenAlarm(halvern); };
    main.DeleteMenu.OnClick = [&] { OpenDelete(halvern); };
    main.TrackMenu.OnClick = [&] { OpenTrack(halvern); };
    auto& alarm = halvern.PosAlarmFrm;
    alarm.OkCmd.OnClick = [&] { MarkStations(halvern); };
    alarm.CancelCmd.OnClick = [&] { alarm.Unload(); };
    auto& track = halvern.PosTrackFrm;
    track.OkCmd.OnClick = [&] { TrackStation(halvern); };
    track.CancelCmd.OnClick = [&] { track.Unload(); };
}

void ConnectHistory(Halvern& halvern)
{
    auto& main = halvern.ConMdiFrm;
    main.Log.OnClick = [&] { StartStopLog(halvern); };
    main.ExportMemory.OnClick = [&] { ExportMemory(halvern); };
    main.ImportLog.OnClick = [&] { ImportLog(halvern); };
    main.SaveHistory.OnClick = [&] { OpenHistory(halvern, true); };
    main.ImportHistory.OnClick = [&] { OpenHistory(halvern, false); };
    main.RestoreMenu.OnClick = [&] { RestoreView(halvern); };
    auto& history = halvern.Hist;
    history.Callsign(1).OnChange = [&] { AllowSearch(history); };
    history.Search1.OnClick = [&] { SearchHistory(halvern); };
    history.CancelCmd.OnClick = [&] { history.Hide(); };
    auto& filter = halvern.JustSym;
    main.JustMenu.OnClick = [&] { OpenSymbolFilter(halvern); };
    filter.OkCmd.OnClick = [&] { TakeSymbolFilter(halvern); };
    filter.CancelCmd.OnClick = [&] { filter.Unload(); };
    filter.OnCloseBox = [&] { filter.Unload(); };
    filter.OnUnload = [&] { main.JustMenu.SetEnabled(true); };
}

void ConnectWeather(Halvern& halvern)
{
    auto& form = halvern.WeatherFrm;
    form.CallSignTxt.OnLeave = [&] { RaiseCase(form.CallSignTxt); };
    form.ComputeCmd.OnClick = [&] { ComputeWeather(halvern); };
    halvern.GraphFrm.CloseCmd.OnClick = [&] { halvern.GraphFrm.Hide(); };
    auto& compass = halvern.CompassFrm;
    compass.OnActivate = [&] { ShowFirstWind(compass); };
    compass.RunSimulation.OnClick = [&] { RunWindSimulation(halvern); };
    compass.CancelButton.OnClick = [&] { compass.Hide(); };
    compass.OnCloseBox = [&] { compass.Unload(); };
    compass.OnUnload = [&] { ForgetWind(compass); };
}

void ConnectQuery(Halvern& halvern)
{
    halvern.ConMdiFrm.QueryMenu.OnClick = [&] { OpenQuery(halvern); };
    halvern.MessageFrm.QueryCmd.OnClick = [&] { OpenQuery(halvern); };
    auto& form = halvern.QueryFrm;
    form.OkCmd.OnClick = [&] { SendQuery(halvern); };
    form.CancelCmd.OnClick = [&] { form.Unload(); };
}

void ConnectNotices(Halvern& halvern)
{
    halvern.OnNotice = [&](const Notice& notice) { FileNotice(halvern, notice); };
    auto& form = halvern.NoticesFrm;
    auto& main = halvern.ConMdiFrm;
    for (MenuItem* item : {&main.NoticesMenu, &main.NoticesCmd})
        item->OnClick = [&] { ShowNotices(halvern, !form.Visible()); };
    main.OnUnload = [&] { form.Hide(); };
    form.NoticeLst.OnClick = [&] { ReadNotice(form); };
    form.ClearCmd.OnClick = [&] { ClearNotices(halvern); };
    form.CloseCmd.OnClick = [&] { ShowNotices(halvern, false); };
    form.OnCloseBox = [&] { ShowNotices(halvern, false); };
}

} // namespace

void ConnectHandlers(Halvern& halvern)
{
    ConnectWindows(halvern);
    ConnectStoreWindows(halvern);
    ConnectSetUp(halvern);
    ConnectPorts(halvern);
    ConnectTransmitter(halvern);
    ConnectGate(halvern);
    ConnectMapMenu(halvern);
    ConnectMap(halvern);
    ConnectFind(halvern);
    ConnectMessages(halvern);
    ConnectPathBuilder(halvern);
    ConnectMyObjects(halvern);
    ConnectObjectFields(halvern);
    ConnectMarks(halvern);
    ConnectHistory(halvern);
    ConnectWeather(halvern);
    ConnectQuery(halvern);
    ConnectNotices(halvern);
    halvern.All.OnFailure = [&halvern](const std::exception& thrown) {
        halvern.Tell(Icon::Critical, "Error # " + std::to_string(NumberOf(thrown)) + " " + thrown.what());
    };
}

} // namespace halvern
