// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/SetupRules.h"

#include "platform/Text.h"
#include "protocol/PositionField.h"
#include "transmit/OwnTexts.h"

namespace halvern {
namespace {

constexpr const char* OnTheStationTab = " under the Station Tab First.";

std::string Missing(const char* what)
{
    return std::string("You have to enter ") + what + OnTheStationTab;
}

std::string Lines(std::initializer_list<std::string_view> lines)
{
    std::string text;
    for (const auto line : lines) text.append(text.empty() ? "" : CrLf).append(line);
    return text;
}

/// "Use another port": what a TNC port that somebody else has taken calls for.
std::string TncPortTaken(const std::string& first, const std::string& other, const std::string& otherPort)
{
    return Lines({first,
                  " If you are using a sound card as your TNC then please change your TNC com port to another one.",
                  " This TNC com port does not have to be an existing one just a diffrent one than your " + other + ".",
                  " If you are not using a Sound Card as your TNC then please change either your " + otherPort +
                      " or your TNC port so they are on diffrent existing com ports."});
}

std::string WeatherAndTncFault(const SetUpForm& setUp)
{
    if (setUp.WXPortCombo.Selected() != setUp.PortLst.Selected()) return {};
    return TncPortTaken("Your Weather station com port and your TNC com port are set to the same com port.",
                        "Weather station", "Weather station Port");
}

std::string WeatherAndGpsFault(const SetUpForm& setUp)
{
    if (setUp.WXPortCombo.Selected() != setUp.GpsPortLst.Selected()) return {};
    return Lines({"Your Weather station com port and your GPS com port are set to the same com port.",
                  "Please change either your GPS com port or your Weather stations com port to a diffrent com port so "
                  "they are on diffrent com ports."});
}

std::string GpsFault(const Halvern& halvern)
{
    const auto& setUp = halvern.SetUpfrm;
    const auto& main = halvern.ConMdiFrm;
    if (const auto fault = WeatherAndGpsFault(setUp); !fault.empty()) return fault;
    if (setUp.PortLst.Selected() == setUp.GpsPortLst.Selected())
        return TncPortTaken("GPS com port and your TNC com port are set to the same com port.", "GPS", "GPS Port");
    if (main.InternetSoc.Connected() || main.WeatherMenu.Checked())
        return "You cannot have the Internet Port open or the Weather Port open and the Gps Port open at the same "
               "time. Please close the other ports then try to open the GPS port again.";
    if (!halvern.AnyRadioPortOpen())
        return "You have to open up at least one of the following ports first before you can open the GPS port. The "
               "TNC Port or the Sound Port or the PSk63 Port. Please click on the Cancel Button. Then open a port. "
               "Then come back here to the Setup Mode tab and click on GPS Attached again. Then the Ok Button.";
    return {};
}

/// A GPS port that is open closes as if by the menu.
void CloseGps(MainForm& main)
{
    if (main.GpsMenu.Checked()) main.GpsMenu.Click();
}

void SwitchGpsOff(Halvern& halvern)
{
    CloseGps(halvern.ConMdiFrm);
    halvern.Engine.GpsPositionOn = false;
    halvern.SetUpfrm.GpsOpt.Select(1);
    halvern.ConMdiFrm.GpsMenu.SetEnabled(false);
}

bool NoFault(Halvern& halvern, const std::string& fault)
{
    if (!fault.empty()) halvern.Tell(Icon::None, fault);
    return fault.empty();
}

} // namespace

SettingFault SetupFault(Halvern& halvern)
{
    auto& setUp = halvern.SetUpfrm;
    auto& mailPath = halvern.MessageFrm.MailUnPath;
    if (setUp.CallSignTxt.Text().empty()) return {Missing("a Call Sign"), &setUp.CallSignTxt};
    if (Holds(setUp.CallSignTxt.Text(), ",")) return {"A Comma in a Call Sign is not allowed", &setUp.CallSignTxt};
    if (const auto part = FaultyPart(setUp.Texts()))
        return {PositionFault(setUp.Texts(), OnTheStationTab), setUp.InOrder()[*part]};
    if (setUp.CommentTXT.Text().empty()) return {Missing("a Position Comment"), &setUp.CommentTXT};
    if (setUp.StatusTXT.Text().empty()) return {Missing("a Status Comment"), &setUp.StatusTXT};
    if (setUp.UnPath.Text().empty()) return {" You have to chose an Unproto path on the setup tab.", &setUp.UnPath};
    if (mailPath.Text().empty())
        return {" You have to chose a Mail Unproto path on the Message Window under the Send tab.", &mailPath};
    return {};
}

std::string ValidateSetup(Halvern& halvern)
{
    return NoFault(halvern, SetupFault(halvern).words) ? "OK" : "NOT OK";
}

std::string ValidatePositionField(Halvern& halvern, std::string_view text, std::string_view name)
{
    return NoFault(halvern, PositionFieldFault(text, name)) ? "OK" : "NOT OK";
}

bool PortsAgree(Halvern& halvern)
{
    const auto& setUp = halvern.SetUpfrm;
    halvern.Engine.GpsPositionOn = setUp.GpsOpt.On(0);
    if (setUp.WxSourceOpt.On(1) && setUp.File1.Selected() < 0)
        return NoFault(halvern, "No Third Party WX Software file is selected. Please go to the Weather Tab and either "
                                "select a Third Party WX Software File name or Click on the Com Port option in the "
                                "Weather tab WX Data Source.");
    if (!NoFault(halvern, WeatherAndTncFault(setUp))) return false;
    if (!halvern.Engine.GpsPositionOn) {
        CloseGps(halvern.ConMdiFrm);
        return true;
    }
    const bool good = NoFault(halvern, GpsFault(halvern));
    if (good)
        halvern.ConMdiFrm.GpsMenu.SetEnabled(true);
    else
        SwitchGpsOff(halvern);
    return good;
}

bool PortsAgreeForSaving(Halvern& halvern)
{
    const auto& setUp = halvern.SetUpfrm;
    halvern.Engine.GpsPositionOn = setUp.GpsOpt.On(0);
    if (!NoFault(halvern, WeatherAndTncFault(setUp))) return false;
    return !halvern.Engine.GpsPositionOn || NoFault(halvern, WeatherAndGpsFault(setUp));
}

void TakeOwnCallAndAlias(Halvern& halvern)
{
    auto& setUp = halvern.SetUpfrm;
    halvern.Engine.OwnCall = OwnCallOf(setUp);
    setUp.MyAlias = setUp.MyAliasOpt.On(1) ? FillInAlias : NoAlias;
}

} // namespace halvern
