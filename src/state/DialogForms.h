// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "platform/Controls.h"
#include "platform/Form.h"
#include "platform/Lists.h"
#include "state/PositionFields.h"
#include "state/Symbols.h"

/// The dialogs.
namespace halvern {

/// Builds a digipeater path, entry by entry.
struct AddPathForm : Form {
    explicit AddPathForm(Controls& all) : Form(all, "AddPathFrm", "Create Path") {}
    Label PathLbl{*this, "PathLbl"};
    Choice PathOpt{*this, "PathOpt", {"WIDE1-1", "WIDE2-1", "WIDE2-2", "WIDE3-3", "Digi Call Sign"}};
    TextField PathCallTxt{*this, "PathCallTxt"};
    Button PathUpDateCmd{*this, "PathUpDateCmd", "&Update"};
    Button OkCmd{*this, "OkCmd", "&OK"};
    Button CancelCmd{*this, "CancelCmd", "&Cancel"};
    Button ClearCmd{*this, "ClearCmd", "C&lear"};
    std::int16_t Hops = 0, Digis = 0;
};

/// Own messages to take back: those that still repeat.
struct KillMsgForm : Form {
    explicit KillMsgForm(Controls& all) : Form(all, "KillMsgFrm", "Kill Message") {}
    List KillLst{*this, "KillLst", ListStyle::MultiRows};
    Button OkCmd{*this, "OkCmd", "&OK"};
    Button CancelCmd{*this, "CancelCmd", "&Cancel"};
};

/// Position, course, speed and comment of an object, as two dialogs have them.
struct ObjectFieldsForm : Form, PositionFields {
    ObjectFieldsForm(Controls& all, std::string name, std::string caption)
        : Form(all, std::move(name), std::move(caption)), PositionFields(static_cast<Form&>(*this))
    {
    }
    NumberLabel ObjectCourselbl{*this, "ObjectCourselbl", 0, 360, "000"};
    NumberLabel ObjectSpeedlbl{*this, "ObjectSpeedlbl", 0, 999, "000"};
    Button InstructionsCmd{*this, "InstructionsCmd", "&Instructions"};
    TextField CommentTXT{*this, "CommentTXT", "", 43};
    Button OkCmd{*this, "OkCmd", "&OK"};
    Button CancelCmd{*this, "CancelCmd", "&Cancel"};
};

/// A new object of the operator's.
struct CreateObjectsForm : ObjectFieldsForm {
    explicit CreateObjectsForm(Controls& all) : ObjectFieldsForm(all, "CreateObjectsFrm", "Create and Send My Objects")
    {
        SymbolCombo.Add("NONE");
        for (const auto symbol : StationSymbols) SymbolCombo.Add(symbol);
        SymbolCombo.Preselect(0);
    }
    Label HelpLbl{
        *this, "HelpLbl",
        "When you click on the OK button the Create Path Dialog Box will appear.\r\n"
        "If you want this object to be sent without a Digi Path then click on the Create Path Cancel Button."};
    TextField ObjectNameTxt{*this, "ObjectNameTxt", "", 9};
    List SymbolCombo{*this, "SymbolCombo", ListStyle::Combo};
    std::string OverlayChar = " "; ///< a blank for none
};

/// An own object's next place.
struct MoveMyObjectForm : ObjectFieldsForm {
    explicit MoveMyObjectForm(Controls& all) : ObjectFieldsForm(all, "MoveMyObjectFrm", "Move My Object") {}
    List ObjectLst{*this, "ObjectLst"};
};

/// Own objects to kill: they are sent as killed, then no more.
struct KillMyObjectsForm : Form {
    explicit KillMyObjectsForm(Controls& all) : Form(all, "KillMyObjectsFrm", "Kill My Object") {}
    List ObjectLst{*this, "ObjectLst"};
    Button OkCmd{*this, "OkCmd", "&OK"};
    Button CancelCmd{*this, "CancelCmd", "&Cancel"};
};

/// Own objects to stay silent about, without a word on the air.
struct StpTransObjectsForm : Form {
    explicit StpTransObjectsForm(Controls& all) : Form(all, "StpTransObjectsFrm", "Stop Sending My Object") {}
    List ObjectLst{*this, "ObjectLst"};
    Button OkCmd{*this, "OkCmd", "&OK"};
    Button ClearCmd{*this, "ClearCmd", "C&lear"};
    Button CancelCmd{*this, "CancelCmd", "&Cancel"};
};

/// Others' objects to go on sending as own ones.
struct TakeTransObjForm : Form {
    explicit TakeTransObjForm(Controls& all) : Form(all, "TakeTransObjFrm", "Take Over Object") {}
    List OthersObjLst{*this, "OthersObjLst"};
    Button OkCmd{*this, "OkCmd", "&OK"};
    Button CancelCmd{*this, "CancelCmd", "&Cancel"};
};

/// A call to look for on the map.
struct FindForm : Form {
    explicit FindForm(Controls& all) : Form(all, "FindFrm", "Find Call Sign") {}
    TextField FindPosTxt{*this, "FindPosTxt"};
    TextField FindStatusTxt{*this, "FindStatusTxt"};
    TextField FindDigiTxt{*this, "FindDigiTxt"};
    TextField PhgTxt{*this, "PhgTxt"};
    List RawPacCombo{*this, "RawPacCombo", ListStyle::Combo};
    Button GoToCmd{*this, "GoToCmd", "&Go To"};
    Button FindCloseCmd{*this, "FindCloseCmd", "&Close"};
};

/// The calls that a search found, to choose from.
struct FindFoundForm : Form {
    explicit FindFoundForm(Controls& all) : Form(all, "FindFoundFrm", "Call Signs Found") {}
    List CallSignLst{*this, "CallSignLst"};
    Button OkCmd{*this, "OkCmd", "&OK"};
    Button CancelCmd{*this, "CancelCmd", "&Cancel"};
};

/// All that is known of one station, as text.
struct InformationForm : Form {
    explicit InformationForm(Controls& all) : Form(all, "InformationFrm", "Information") {}
    List InformationLst{*this, "InformationLst"};
    Button CloseCmd{*this, "CloseCmd", "&Close"};
};

/// The page of a call in a directory on the Internet.
struct BrowserForm : Form {
    explicit BrowserForm(Controls& all) : Form(all, "browfrm", "Look Up") {}
    TextField WebBrowser1{*this, "WebBrowser1"};
    Button BackCommand{*this, "BackCommand", "&Back"};
    Button FwdCommand{*this, "FwdCommand", "&Forward"};
    Button BrowClose{*this, "BrowClose", "&Close"};
};

/// The course of one weather value at one station.
struct GraphForm : Form {
    explicit GraphForm(Controls& all) : Form(all, "GraphFrm", "Graph") {}
    List GraphLst{*this, "GraphLst"};
    Label Graph1{*this, "Graph1"};
    std::string BottomTitle, LeftTitle;
    double UpperBound = 0, LowerBound = 0;
    std::vector<std::string> Times; ///< "dd hh:mm:ss" of each value, beside the graph's own numbers
    Button CloseCmd{*this, "CloseCmd", "&Close"};
};

/// Wind direction and speed of one station, as it was told packet by packet.
struct CompassForm : Form {
    explicit CompassForm(Controls& all) : Form(all, "CompassFrm", "Wind") {}
    List CompassLst{*this, "CompassLst"};
    List DirectionLst{*this, "DirectionLst"};
    List SpeedLst{*this, "SpeedLst"};
    Gauge DirGage{*this, "DirGage"};
    Gauge Slider1{*this, "Slider1"};
    Button RunSimulation{*this, "RunSimulation", "&Run"};
    Button CancelButton{*this, "CancelButton", "&Close"};
    bool Running = false; ///< the simulation plays
};

/// The printer that maps go to.
struct ChosePrinterForm : Form {
    explicit ChosePrinterForm(Controls& all) : Form(all, "ChosePrinter", "Choose A Printer") {}
    List PrinterLst{*this, "PrinterLst"};
    Button OkCmd{*this, "OkCmd", "&OK"};
    Button CancelCmd{*this, "CancelCmd", "&Cancel"};
    std::string Printer; ///< the one that was chosen last
    bool Chosen = false; ///< it was closed by OK
};

/// Stations whose moves are told, and shown closely.
struct PosAlarmForm : Form {
    explicit PosAlarmForm(Controls& all) : Form(all, "PosAlarmFrm", "Position Alarm") {}
    Label HelpLbl{*this, "HelpLbl"};
    List AlarmLst{*this, "AlarmLst", ListStyle::MultiRows};
    Choice AlarmOpt{*this, "AlarmOpt", {"Alarm On", "Alarm Off"}};
    Button OkCmd{*this, "OkCmd", "&OK"};
    Button CancelCmd{*this, "CancelCmd", "&Cancel"};
    std::string PosAlarmMode = "alarm"; ///< or "delete"
};

/// Stations that the view goes along with.
struct PosTrackForm : Form {
    explicit PosTrackForm(Controls& all) : Form(all, "PosTrackFrm", "Position Track") {}
    List TrackLst{*this, "TrackLst"};
    Choice TrackOpt{*this, "TrackOpt", {"Track On", "Track Off"}};
    Button OkCmd{*this, "OkCmd", "&OK"};
    Button CancelCmd{*this, "CancelCmd", "&Cancel"};
};

/// The one symbol that the filter lets in.
struct JustSymForm : Form {
    explicit JustSymForm(Controls& all) : Form(all, "JustSym", "Just One Symbol") {}
    List SymbolLst{*this, "SymbolLst", ListStyle::Rows, FilterSymbols};
    Button OkCmd{*this, "OkCmd", "&OK"};
    Button CancelCmd{*this, "CancelCmd", "&Cancel"};
};

/// Queries to everybody or to one station.
struct QueryForm : Form {
    explicit QueryForm(Controls& all) : Form(all, "QueryFrm", "Query") {}
    Choice QueryOpt{*this,
                    "QueryOpt",
                    {"Query All Stations", "Query All WX Stations", "Query All Igates", "Position/Status", "Position",
                     "Status", "OutStanding Msg", "ObJects", "Stations Heard Direct", "Have You Heard", "Ping"}};
    TextField HeardTxt{*this, "HeardTxt"};
    List CallSignLst{*this, "CallSignLst"};
    Button OkCmd{*this, "OkCmd", "&OK"};
    Button CancelCmd{*this, "CancelCmd", "&Cancel"};
};

/// What the station had to say while nobody may have been sitting there; no packet writes into it by itself.
struct NoticesForm : Form {
    explicit NoticesForm(Controls& all) : Form(all, "NoticesFrm", "Notices") {}
    List NoticeLst{*this, "NoticeLst"};
    TextField NoticeTxt{*this, "NoticeTxt"}; ///< the selected one in full
    Button CloseCmd{*this, "CloseCmd", "&Close"};
    Button ClearCmd{*this, "ClearCmd", "C&lear"};
    int News = 0; ///< how often something was told since the window was last up
};

/// The font of one kind of text.
struct FontForm : Form {
    explicit FontForm(Controls& all) : Form(all, "FontFrm", "Fonts") {}
    Choice FormOpt{*this,
                   "FormOpt",
                   {"Position Form", "Status Form", "Digi Form", "Message Form", "Heard Form", "Raw Received",
                    "Dx Form", "Weather Form", "Telemetry Form", "Find Form", "Kill Msg Form"}};
    Button FontOkCmd{*this, "FontOkCmd", "&Font..."};
    Button CancelCmd{*this, "CancelCmd", "&Close"};
};

/// Up to twenty calls whose packets go into a history file or come out of one.
struct HistoryForm : Form {
    explicit HistoryForm(Controls& all) : Form(all, "Hist", "Halvern History Export Form")
    {
        Search1.SetEnabled(false);
    }
    ControlArray<TextField> Callsign{
        *this, "Callsign", 1, {"", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", ""}};
    Button Search1{*this, "Search1", "Export"};
    Button CancelCmd{*this, "CancelCmd", "&Cancel"};
    bool HistExport = false;
};

} // namespace halvern
