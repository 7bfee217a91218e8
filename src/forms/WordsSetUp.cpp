// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/WordTables.h"

namespace halvern {

std::span<const WordEntry> SetUpWords()
{
    static constexpr WordEntry words[] = {
        {"SetUpfrm.SSTab1", "Setup", ""},
        // Station
        {"SetUpfrm.CallSignTxt", "Call &sign", "Call Sign Only No SSID"},
        {"SetUpfrm.SSIDLBL", "SS&ID", "SSID Number Zero for none"},
        {"*.LatDegtxt", "L&atitude", "Degrees of latitude, two digits"},
        {"*.LatMintxt", "", "Minutes of latitude, two digits"},
        {"*.LatDectxt", "", "Hundredths of a minute of latitude, two digits"},
        {"*.LatSigntxt", "", "Hemisphere of latitude, N or S"},
        {"*.LonDegtxt", "Lo&ngitude", "Degrees of longitude, three digits"},
        {"*.LonMintxt", "", "Minutes of longitude, two digits"},
        {"*.LonDectxt", "", "Hundredths of a minute of longitude, two digits"},
        {"*.LonSigntxt", "", "Hemisphere of longitude, E or W"},
        {"SetUpfrm.Latlbl", "", "The latitude as packets carry it"},
        {"SetUpfrm.Lonlbl", "", "The longitude as packets carry it"},
        {"SetUpfrm.PortLst", "TNC &port", "The serial port of the TNC"},
        {"SetUpfrm.PortSpeedLst", "Sp&eed", "Its speed in bits a second"},
        {"SetUpfrm.TncTypeCombo", "TNC t&ype", "The make of the TNC"},
        {"SetUpfrm.SymbolCombo", "Sy&mbol", "How this station looks on the maps of others"},
        {"SetUpfrm.CommentTXT", "Commen&t", "Goes out with every position, at most 43 characters"},
        {"SetUpfrm.StatusTXT", "Stat&us", "Goes out as the status, at most 55 characters"},
        {"SetUpfrm.UnPath", "Unp&roto path", "The digipeater path of this station's packets"},
        {"SetUpfrm.AddCom", "", "Build a new path"},
        {"SetUpfrm.DeleteCom", "", "Take the selected path out of the list"},
        {"SetUpfrm.DeadOnOpt", "Dead rec&koning", "Whether Refresh moves stations on by their course and speed"},
        {"SetUpfrm.MsgGroupLst", "Message &groups",
         "Messages to these names are shown as if they came to this station"},
        {"SetUpfrm.AddGrp", "", "Add a message group"},
        {"SetUpfrm.ChangeGrp", "", "Change the selected message group"},
        {"SetUpfrm.DeleteGrp", "", "Delete the selected message group"},
        {"SetUpfrm.UtcTimeLbl", "UTC time", "The time by which packets are stamped"},
        // Weather
        {"SetUpfrm.WxSourceOpt", "WX Data Source", "Where the station's weather comes from"},
        {"SetUpfrm.ComWxFrame", "", "The weather station's serial port"},
        {"SetUpfrm.WXPortCombo", "&Port", "The serial port of the weather station"},
        {"SetUpfrm.WXBaudCombo", "Sp&eed", "Its speed in bits a second"},
        {"SetUpfrm.SoftWxFrame", "", "The file that a weather program writes"},
        {"SetUpfrm.WxSoftCombo", "Pro&gram", "The program that writes the file"},
        {"SetUpfrm.Drive1", "Dri&ve", "The drive on which the file lies"},
        {"SetUpfrm.Dir1", "&Folder", "The folder in which the file lies; click or Enter goes into one"},
        {"SetUpfrm.File1", "F&ile", "The file that is read at every interval"},
        {"SetUpfrm.TimeOpt", "Send weather every", "How often weather goes out"},
        {"SetUpfrm.WxHelpCmd", "", "How weather stations and programs are attached"},
        // Internet
        {"SetUpfrm.IntDomainCombo", "Se&rver", "The APRS-IS server: pick one, or type its name"},
        {"SetUpfrm.APRServePortTxt", "&Port", "Its port, 14580 as a rule"},
        {"SetUpfrm.APRServePassTxt", "Pass&word", "The passcode of the call sign"},
        {"SetUpfrm.APRServeFilterTxt", "&Filter", "What the server is to send, as a filter command"},
        // Save
        {"SetUpfrm.TabSaveCmd", "", "Write all settings, the places of the windows and the map's view to Halvern.INI"},
        // Modes
        {"SetUpfrm.AprsMode", "APRS mode", "The destination of this station's packets"},
        {"SetUpfrm.AltNetTxt", "Al&t-Net", "The destination of the Alt-Net mode"},
        {"SetUpfrm.GpsOpt", "GPS", "Whether the position comes from a GPS"},
        {"SetUpfrm.GpsPortLst", "GPS &port", "The serial port of the GPS"},
        {"SetUpfrm.GpsPortSpeedLst", "Sp&eed", "Its speed in bits a second"},
        {"SetUpfrm.GpsSendTimeLst", "Send e&very", "How often the GPS position goes out"},
        {"SetUpfrm.GpsSentanceLst", "Sente&nce", "The sentence that is read"},
        {"SetUpfrm.PhgPowerLst", "Po&wer, watts", "Transmitter power in watts"},
        {"SetUpfrm.PhgHeightLst", "Hei&ght, feet", "Height of the antenna above average terrain in feet"},
        {"SetUpfrm.PhgGainLst", "G&ain, dB", "Gain of the antenna in dB"},
        {"SetUpfrm.PhgDirLst", "&Direction", "Direction of the antenna in degrees, 0 for omni"},
        {"SetUpfrm.MyAliasOpt", "Digipeat WIDE1-1", "Whether this station repeats for WIDE1-1"},
        {"SetUpfrm.Psk63IpAddTxt", "PS&K63 address", "The machine of the PSK63 engine, in dot notation"},
        {"SetUpfrm.Psk63PortTxt", "Po&rt", "The port of the PSK63 engine; 3122 selects its other dialect"},
        // I-gate
        {"SetUpfrm.IgateOpt", "IGATE", "Whether packets heard on radio go to the Internet"},
        {"SetUpfrm.IgateBIOpt", "", "Whether messages for stations heard on radio go out there"},
        {"SetUpfrm.IgateBiDirFrame", "", "From the Internet to radio"},
        {"SetUpfrm.IgateHopFrame", "", "How far gated packets travel"},
        {"SetUpfrm.IgateHopOpt", "", "Hops of gated packets"},
        {"SetUpfrm.IgateTimeFrame", "", "How long a message waits for another gate"},
        {"SetUpfrm.IgateTimeLbl", "&Wait", "Seconds that a message is held off, 0 to 60"},
        {"SetUpfrm.IgateSecLbl", "", "Seconds"},
        {"SetUpfrm.IgateBudsFrame", "", "Stations whose positions always go out on radio"},
        {"SetUpfrm.IgateBudsCombo", "", "Stations whose positions always go out on radio"},
        {"SetUpfrm.BudsAddCmd", "", "Add a buddy"},
        {"SetUpfrm.BudsDelCmd", "", "Delete the selected buddy"},
        {"SetUpfrm.WxMessFram", "", "Weather offices whose messages go out on radio"},
        {"SetUpfrm.WxMessCombo", "", "Weather offices whose messages go out on radio"},
        {"SetUpfrm.WxAddCmd", "", "Add a weather office"},
        {"SetUpfrm.WxDelCmd", "", "Delete the selected weather office"},
        {"SetUpfrm.IgateHelpCmd", "", "What an I-gate does, and what it needs"},
        // under the tabs
        {"SetUpfrm.TabOkCmd", "", "Use these settings in this run"},
        {"SetUpfrm.TabCancelCmd", "", "Put everything back as it was"},
        {"SetUpfrm.HelpCmd", "", "Every field explained"},
    };
    return words;
}

} // namespace halvern
