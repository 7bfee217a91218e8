// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "platform/Controls.h"
#include "platform/EndMark.h"
#include "platform/Form.h"
#include "platform/Lists.h"
#include "platform/Ports.h"
#include "state/Lists.h"

namespace halvern {

/// The main window: menus, toolbar, range selector, status bar, ports and the timers that run without a window.
struct MainForm : Form {
    explicit MainForm(Controls& all) : Form(all, "ConMdiFrm", "Halvern") {}

    // File
    MenuItem LogMenu{*this, "LogMenu", "&File"};
    MenuItem Log{*this, "Log", "&Start Log"};
    MenuItem ImportLog{*this, "ImportLog", "&Import Log..."};
    MenuItem ImportHistory{*this, "ImportHistory", "Import &History..."};
    MenuItem ExportMemory{*this, "ExportMemory", "&Export Memory..."};
    MenuItem SaveHistory{*this, "SaveHistory", "Export Histor&y..."};
    MenuItem RestoreMenu{*this, "RestoreMenu", "&Restore", {"hidden"}};
    MenuItem ClearMenu{*this, "ClearMenu", "&Clear Lists"};
    MenuItem SetupMenu{*this, "SetupMenu", "Set&up..."};
    MenuItem FontMenu{*this, "FontMenu", "Fo&nts..."};
    MenuItem EndApp{*this, "EndApp", "E&xit"};

    // Ports: a check mark is an open port
    MenuItem PortsMn{*this, "PortsMn", "&Ports", {"disabled"}};
    MenuItem PortTnc{*this, "PortTnc", "&TNC Port"};
    MenuItem PortIp{*this, "PortIp", "TCP/&IP Port"};
    MenuItem SoundCardMenu{*this, "SoundCardMenu", "&Sound Card Port"};
    MenuItem Psk63Menu{*this, "Psk63Menu", "&PSK63 Port"};
    MenuItem GpsMenu{*this, "GpsMenu", "&GPS Port", {"disabled"}};
    MenuItem WeatherMenu{*this, "WeatherMenu", "&Weather Station"};

    // View: one entry a window, 1 to 10; FrmMenu(7), the raw packets, waits for the first port
    MenuItem ViewMenu{*this, "ViewMenu", "&View"};
    ControlArray<MenuItem> FrmMenu{*this,
                                   "FrmMenu",
                                   1,
                                   {"&Map", "&Positions", "&Status", "&Digipeaters", "M&essages", "&Heard",
                                    "&Raw Packets", "D&X And Resources", "&Weather", "&Telemetry"}};
    MenuItem GateMenu{*this, "GateMenu", "&Gate"};
    MenuItem NoticesMenu{*this, "NoticesMenu", "&Notices"};
    MenuItem RefreshMnu{*this, "RefreshMnu", "Re&fresh", {"hidden"}};

    // Map
    MenuItem MapMenu{*this, "MapMenu", "&Map", {"hidden"}};
    MenuItem PanMapMenu{*this, "PanMapMenu", "Zoom &In Or Pan Map"};
    MenuItem ZoomLastMenu{*this, "ZoomLastMenu", "Zoom &Last"};
    MenuItem ZoomUSAmenu{*this, "ZoomUSAmenu", "Zoom &USA"};
    MenuItem HomeMenu{*this, "HomeMenu", "&Home"};
    MenuItem FindCallSignMenu{*this, "FindCallSignMenu", "&Find Call Sign..."};
    MenuItem RefreshMapMenu{*this, "RefreshMapMenu", "&Refresh Map"};
    MenuItem DosMapMenu{*this, "DosMapMenu", "&DOS Maps"};
    MenuItem UsgsMapMenu{*this, "UsgsMapMenu", "U&SGS Maps"};
    MenuItem BitMapMenu{*this, "BitMapMenu", "&Bitmap Maps"};
    MenuItem PlotPhgFixedMenu{*this, "PlotPhgFixedMenu", "Plot PHG For Fi&xed Stations"};
    MenuItem PlotPhgMobileMenu{*this, "PlotPhgMobileMenu", "Plot PHG For &Mobile Stations"};
    MenuItem SaveBitMapMenu{*this, "SaveBitMapMenu", "Save Map As Bitma&p..."};
    MenuItem PrintMapMenu{*this, "PrintMapMenu", "Prin&t Map..."};

    // Positions
    MenuItem PosMenu{*this, "PosMenu", "P&ositions", {"hidden"}};
    MenuItem AlarmMenu{*this, "AlarmMenu", "&Alarm..."};
    MenuItem TrackMenu{*this, "TrackMenu", "&Track..."};
    MenuItem DeleteMenu{*this, "DeleteMenu", "&Delete..."};
    MenuItem JustMenu{*this, "JustMenu", "&Just One Symbol..."};

    // Messages
    MenuItem MailMenu{*this, "MailMenu", "M&essages", {"hidden"}};
    MenuItem MailAddMenu{*this, "MailAddMenu", "&Add Mail Path..."};
    MenuItem MailChangeMenu{*this, "MailChangeMenu", "&Change Mail Path..."};
    MenuItem MailDeleteMenu{*this, "MailDeleteMenu", "&Delete Mail Path"};
    MenuItem KillMsg{*this, "KillMsg", "&Kill Message..."};
    MenuItem CLRMsgTxtMenu{*this, "CLRMsgTxtMenu", "C&lear Message Text", {"hidden"}};

    // Transmit
    MenuItem TransmitMenu{*this, "TransmitMenu", "&Transmit"};
    MenuItem BeaconMenu{*this, "BeaconMenu", "&Beacon Now"};
    MenuItem QueryMenu{*this, "QueryMenu", "&Query..."};
    MenuItem CgiFinduMenu{*this, "CgiFinduMenu", "&Look Up On The Web...", {"hidden"}};

    // Own objects
    MenuItem MyObjectsMenu{*this, "MyObjectsMenu", "M&y Objects", {"hidden"}};
    MenuItem CreateMyObjectsMenu{*this, "CreateMyObjectsMenu", "&Create Object..."};
    MenuItem MoveMyObjMenu{*this, "MoveMyObjMenu", "&Move Object...", {"disabled"}};
    MenuItem KillMyObjectsMenu{*this, "KillMyObjectsMenu", "&Kill Object...", {"disabled"}};
    MenuItem StpTransObjectsMenu{*this, "StpTransObjectsMenu", "&Stop Sending Object...", {"disabled"}};
    MenuItem TakeTransmitMenu{*this, "TakeTransmitMenu", "&Take Over Object..."};

    // Window, help, and the pop-up of a station on the map
    MenuItem WindowMenu{*this, "WindowMenu", "&Window", {"hidden"}};
    MenuItem CascadeMenu{*this, "CascadeMenu", "&Cascade"};
    MenuItem TileMenu{*this, "TileMenu", "&Tile"};
    MenuItem HelpMenu{*this, "HelpMenu", "&Help"};
    MenuItem GetHelpMenu{*this, "GetHelpMenu", "&Contents"};
    MenuItem AboutHalvernMenu{*this, "AboutHalvernMenu", "&About Halvern"};
    MenuItem Pop1Menu{*this, "Pop1Menu", "Station"};
    MenuItem InfoMenu{*this, "InfoMenu", "&Information"};
    MenuItem WXInfo{*this, "WXInfo", "&Weather"};

    // Toolbar and selectors; a button's caption is the word of its map command
    Frame Toolbar1{*this, "Toolbar1"};
    ControlArray<MenuItem> Toolbar1Button{
        *this, "Toolbar1", 1, {"PanMap", "ZoomLast", "ZoomUSA", "FindCallSign", "PrintMap", "SaveBitMap", "DosMap"}};
    List ScaleCombo{*this, "ScaleCombo", ListStyle::Combo, RangeSteps};
    TextField ScaleTxt{*this, "ScaleTxt"};
    TextField dMapTxt{*this, "dMapTxt"};
    List BitMapCombo{*this, "BitMapCombo", ListStyle::Combo};
    Label StatusBar1{*this, "StatusBar1"};                    ///< the last packet, or what a port did
    Label StatusBar2{*this, "StatusBar2"};                    ///< the pointer's position on the map, east positive
    MenuItem NoticesCmd{*this, "NoticesCmd", "", {"hidden"}}; ///< how many notices there are, while there are any

    // Ports
    SerialPort MSComm1{*this, "MSComm1", KissFrames};
    SerialPort WeatherCom{*this, "WeatherCom", {.mark = '\r', .longest = 2000}};
    SerialPort GpsCom{*this, "GpsCom"};
    Socket InternetSoc{*this, "InternetSoc", "", 0, 10000, ServerLines};
    Socket SoundSoc{*this, "SoundSoc", "127.0.0.1", 4000, 1000, KissFrames};
    Socket Psk63Soc{*this, "Psk63Soc", "127.0.0.1", 3131, 1000, TextLines};

    // Timers
    Timer Timer2{*this, "Timer2"};               ///< the beacons
    Timer MyObjectTimer{*this, "MyObjectTimer"}; ///< own objects
    Timer NetDecayTmr{*this, "NetDecayTmr"};     ///< retires stations that are silent for two hours
    Timer IgateMessHold{*this, "IgateMessHold"}; ///< the hold of a message that another gate may send first
    Timer GpsTimer{*this, "GpsTimer"};           ///< when the GPS line opens next
    Timer WXSoft{*this, "WXSoft"};               ///< when the weather file is read next

    // Stores without a window
    List MyObjectLst{*this, "MyObjectLst"};        ///< own objects, a record each
    List TransmitLst{*this, "TransmitLst"};        ///< how far each of them is in its schedule
    KeyedList HeardOnRfLst{*this, "HeardOnRfLst"}; ///< heard on radio, with the fewest hops
    TextField IgMesSaveTxt{*this, "IgMesSaveTxt"}; ///< the message that is held
    List DecisionLst{*this, "DecisionLst"};        ///< what gate and digipeater made of each packet

    // Working variables. Each is its acting file's alone: the ports' and the server's of ports/, counts of relay/ and
    // ports/, FrmState of view/ChildWindows, StartDone of app/StartUp.
    std::string KissRxBuffer, SoundRxBuffer, WxRxBuffer; ///< bytes that came in and are not consumed yet
    bool ServerLoggedIn = false;
    std::string ServerAnswer;          ///< what the server said of the login: "# logresp CALL verified, server NAME"
    std::string Psk63Hunt, Psk63Frame; ///< characters outside a packet, and of the one that comes in
    bool Psk63InFrame = false;
    std::int16_t IgateHoldCount = 0, DecayTicks = 0, ObjectCycle = 0, WxFileTicks = 0;
    std::int16_t GpsSendCount = 0, GpsSendLimit = 0;
    bool ObjectDialogOk = false;
    std::array<std::string, 11> FrmState; ///< "True" while window 1 to 10 is on
    std::string StartDone;                ///< "N" once the first activation is through
};

} // namespace halvern
