// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <vector>

#include "platform/Controls.h"
#include "platform/Form.h"
#include "platform/Lists.h"
#include "state/Lists.h"
#include "state/PositionFields.h"
#include "state/SettingValue.h"
#include "state/Symbols.h"

namespace halvern {

/// The setup form, and with it the live settings: whoever wants a setting reads its control.
struct SetUpForm : Form, PositionFields {
    explicit SetUpForm(Controls& all)
        : Form(all, "SetUpfrm", "Setup"),
          PositionFields(static_cast<Form&>(*this), 2) // one more than the latitude's: old files may hold two
    {
        SetPlace({8490, 0, 0, 8205, 0});
        IgateOpt.SetEntryEnabled(1, false);
        for (auto* control : GatingControls()) control->SetEnabled(false);
        IgateBIOpt.SetEnabled(false);
        IgateBiDirFrame.SetEnabled(false);
        AltNetTxt.SetEnabled(false);
        for (List* list : {&GpsPortLst, &GpsPortSpeedLst, &GpsSendTimeLst, &GpsSentanceLst}) list->SetEnabled(false);
        SoftWxFrame.SetEnabled(false);
    }

    Choice SSTab1{*this, "SSTab1", {"Station", "Weather", "Internet", "Save", "Modes", "IGATE"}};

    // Station
    TextField CallSignTxt{*this, "CallSignTxt", "", 6};
    NumberLabel SSIDLBL{*this, "SSIDLBL", 0, 15, "0"};
    Label Latlbl{*this, "Latlbl", "4049.14N"};
    Label Lonlbl{*this, "Lonlbl", "07308.41W"};
    List PortLst{*this, "PortLst", ListStyle::Combo, ComPorts, 0};
    List PortSpeedLst{*this, "PortSpeedLst", ListStyle::Combo, PortSpeeds, 0};
    List TncTypeCombo{
        *this, "TncTypeCombo", ListStyle::Combo, {"AEA", "D700", "KPC3", "KAN", "PICO", "TAPR", "THD7", "PACCOM"}, 0};
    List SymbolCombo{*this, "SymbolCombo", ListStyle::Combo, StationSymbols, 0};
    TextField CommentTXT{*this, "CommentTXT", "", 43};
    TextField StatusTXT{*this, "StatusTXT", "", 55};
    List UnPath{*this, "UnPath", ListStyle::TypedCombo, {"NONE", "WIDE2-2"}, 0};
    Button AddCom{*this, "AddCom", "A&dd..."};
    Button DeleteCom{*this, "DeleteCom", "De&lete"};
    Choice DeadOnOpt{*this, "DeadOnOpt", {"On", "Off"}};
    List MsgGroupLst{*this, "MsgGroupLst"};
    Button AddGrp{*this, "AddGrp", "Add..."};
    Button ChangeGrp{*this, "ChangeGrp", "Change..."};
    Button DeleteGrp{*this, "DeleteGrp", "Delete"};
    Label UtcTimeLbl{*this, "UtcTimeLbl"};

    // Weather
    Choice WxSourceOpt{*this, "WxSourceOpt", {"Com Port", "Third Party Software"}};
    Frame ComWxFrame{*this, "ComWxFrame", "Com Port"};
    List WXPortCombo{*this, "WXPortCombo", ListStyle::Combo, ComPorts, 15};
    List WXBaudCombo{*this, "WXBaudCombo", ListStyle::Combo, PortSpeeds, 4};
    Frame SoftWxFrame{*this, "SoftWxFrame", "Third Party Software"};
    List WxSoftCombo{*this, "WxSoftCombo", ListStyle::Combo, {"Weather Display"}, 0};
    List Drive1{*this, "Drive1", ListStyle::Combo};
    FolderList Dir1{*this, "Dir1"};
    FolderList File1{*this, "File1"};
    Choice TimeOpt{*this,
                   "TimeOpt",
                   {"1 Min", "2 Min", "3 Min", "4 min", "5 Min", "10 Min", "15 Min", "20 Min", "25 Min", "30 Min",
                    "35 Min", "40 Min", "45 Min", "50 Min", "55 Min", "60 Min"},
                   4};
    Button WxHelpCmd{*this, "WxHelpCmd", "Weather Help"};

    // Internet
    List IntDomainCombo{*this, "IntDomainCombo", ListStyle::TypedCombo};
    TextField APRServePortTxt{*this, "APRServePortTxt", "23"};
    TextField APRServePassTxt{*this, "APRServePassTxt"};
    TextField APRServeFilterTxt{*this, "APRServeFilterTxt"};

    // Save
    Button TabSaveCmd{*this, "TabSaveCmd", "Sa&ve"};

    // Modes
    Choice AprsMode{*this, "AprsMode", {"Normal", "Special", "Alt-Net"}};
    TextField AltNetTxt{*this, "AltNetTxt", "", 9};
    Choice GpsOpt{*this, "GpsOpt", {"Gps Attached", "Gps Not Attached"}, 1};
    List GpsPortLst{*this, "GpsPortLst", ListStyle::Combo, ComPorts, 1};
    List GpsPortSpeedLst{*this, "GpsPortSpeedLst", ListStyle::Combo, GpsSpeeds, 5};
    List GpsSendTimeLst{
        *this, "GpsSendTimeLst", ListStyle::Combo, {"5 Min", "4 Min", "3 Min", "2 Min", "1 Min", "30 Sec"}, 0};
    List GpsSentanceLst{*this, "GpsSentanceLst", ListStyle::Combo, {"GPGGA", "GPGLL", "GPRMC"}, 0};
    List PhgPowerLst{
        *this, "PhgPowerLst", ListStyle::Combo, {"0", "1", "4", "9", "16", "25", "36", "49", "64", "81"}, 0};
    List PhgHeightLst{*this,
                      "PhgHeightLst",
                      ListStyle::Combo,
                      {"10", "20", "40", "80", "160", "320", "640", "1280", "2560", "5120"},
                      0};
    List PhgGainLst{*this, "PhgGainLst", ListStyle::Combo, {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"}, 0};
    List PhgDirLst{
        *this, "PhgDirLst", ListStyle::Combo, {"0", "45", "90", "135", "180", "225", "270", "315", "360"}, 0};
    Choice MyAliasOpt{*this, "MyAliasOpt", {"OFF", "ON"}};
    TextField Psk63IpAddTxt{*this, "Psk63IpAddTxt", "127.0.0.1"};
    TextField Psk63PortTxt{*this, "Psk63PortTxt", "3131"};

    // I-gate
    Choice IgateOpt{*this, "IgateOpt", {"IGATE OFF", "IGATE ON"}};
    Frame IgateBiDirFrame{*this, "IgateBiDirFrame", "Internet To Radio"};
    Choice IgateBIOpt{*this, "IgateBIOpt", {"OFF", "ON"}};
    Frame IgateHopFrame{*this, "IgateHopFrame", "Hops"};
    Choice IgateHopOpt{*this, "IgateHopOpt", {"0", "1", "2"}};
    Frame IgateTimeFrame{*this, "IgateTimeFrame", "Message Hold Off"};
    NumberLabel IgateTimeLbl{*this, "IgateTimeLbl", 0, 60, "0"};
    Label IgateSecLbl{*this, "IgateSecLbl", "Seconds"};
    Frame IgateBudsFrame{*this, "IgateBudsFrame", "IGATE Buddies"};
    List IgateBudsCombo{*this, "IgateBudsCombo", ListStyle::Combo};
    Button BudsAddCmd{*this, "BudsAddCmd", "Add..."};
    Button BudsDelCmd{*this, "BudsDelCmd", "Delete"};
    Frame WxMessFram{*this, "WxMessFram", "Weather Messages"};
    List WxMessCombo{*this, "WxMessCombo", ListStyle::Combo};
    Button WxAddCmd{*this, "WxAddCmd", "Add..."};
    Button WxDelCmd{*this, "WxDelCmd", "Delete"};
    Button IgateHelpCmd{*this, "IgateHelpCmd", "IGATE Help"};

    // Under the tabs
    Button TabOkCmd{*this, "TabOkCmd", "&OK"};
    Button TabCancelCmd{*this, "TabCancelCmd", "&Cancel"};
    Button HelpCmd{*this, "HelpCmd", "&Help"};

    // Working variables
    std::string MyAlias = "1234567890"; ///< the alias that is digipeated for; a text that no path holds means none
    std::string OverlayChar;            ///< empty or a blank for none
    std::vector<SettingValue> Recorded; ///< the values at the form's activation, which Cancel puts back
    std::vector<SettingValue> Saved;    ///< the same as the settings file has them; nothing without a file
    int PathIndex = 0;                  ///< the entry of `UnPath` that was chosen last
    bool SettingUp = false;             ///< the form's own code is setting its controls

    /// What the switch "gate from the Internet to radio" enables and disables.
    std::array<Control*, 13> GatingControls()
    {
        return {&IgateHopFrame,  &IgateHopOpt,    &IgateTimeFrame, &IgateTimeLbl, &IgateSecLbl,
                &IgateBudsFrame, &IgateBudsCombo, &BudsAddCmd,     &BudsDelCmd,   &WxMessFram,
                &WxMessCombo,    &WxAddCmd,       &WxDelCmd};
    }
};

} // namespace halvern
