// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/SetupFields.h"

#include <cerrno>
#include <cstring>
#include <optional>

#include "platform/Text.h"
#include "platform/Version.h"

namespace halvern {
namespace {

constexpr const char* OverlayMark = "Overlay";

bool IsOverlayCharacter(std::string_view text)
{
    return text.size() == 1 && (IsDigit(text[0]) || (text[0] >= 'A' && text[0] <= 'Z'));
}

/// Asks until there is an overlay character, or until the operator wants another symbol, which is no answer.
std::optional<std::string> AskForOverlay(Halvern& halvern)
{
    auto& dialogs = halvern.Outside.dialogs;
    for (;;) {
        auto answer = dialogs.Input("Enter Alphanumeric Overlay Character", "Symbol Overlay Dialog").value_or(" ");
        if (answer.empty()) answer = " ";
        answer = UpperCase(answer);
        if (answer.size() > 1) {
            halvern.Tell(Icon::None, "Overlay Character can not be more than one Character long. Please try again.");
        } else if (answer == " ") {
            if (dialogs.Question("What would you like to do?\r\n"
                                 "Answer Yes if you want to enter an Overlay Character.\r\n"
                                 "Answer No if you want to pick a diffrent APRS symbol.",
                                 "Halvern Symbol Question Dialog") != Answer::Yes)
                return {};
        } else if (IsOverlayCharacter(answer)) {
            return answer;
        } else {
            halvern.Tell(Icon::None, "You can only use the letters A through Z or the numbers 0 through 9 as an "
                                     "overlay character. Please try again.");
        }
    }
}

std::string SystemText(int error)
{
    return std::strerror(error);
}

} // namespace

// --- texts -----------------------------------------------------------------------------------------------------------

void RaiseCase(TextField& field)
{
    field.SetText(UpperCase(field.Text()));
}

void ShowPositionInPacketForm(SetUpForm& setUp)
{
    setUp.Latlbl.SetCaption(setUp.Latitude());
    setUp.Lonlbl.SetCaption(setUp.Longitude());
}

void PickSymbol(Halvern& halvern, List& combo, std::string& overlay)
{
    const std::string entry = combo.Text();
    if (Holds(entry, "_"))
        halvern.Tell(Icon::None, "You have selected a Weather Station Symbol.\r\n"
                                 " Be aware if you do not have a Weather Station then Halvern will not send any "
                                 "Packets at all.\r\n"
                                 " This is so all Weather Symbols send Weather Data.");
    overlay.clear();
    if (!Holds(entry, OverlayMark)) return;
    if (const auto answer = AskForOverlay(halvern))
        overlay = *answer;
    else
        combo.Select(0);
}

// --- switches --------------------------------------------------------------------------------------------------------

void SwitchWeatherSource(SetUpForm& setUp)
{
    setUp.ComWxFrame.SetEnabled(setUp.WxSourceOpt.On(0));
    setUp.SoftWxFrame.SetEnabled(setUp.WxSourceOpt.On(1));
}

void SwitchMode(Halvern& halvern)
{
    auto& setUp = halvern.SetUpfrm;
    if (setUp.AprsMode.On(0)) halvern.Engine.OwnDest = NormalDestination;
    if (setUp.AprsMode.On(1)) halvern.Engine.OwnDest = SpecialDestination;
    setUp.AltNetTxt.SetEnabled(setUp.AprsMode.On(2));
}

void SwitchGps(SetUpForm& setUp)
{
    for (List* list : {&setUp.GpsPortLst, &setUp.GpsPortSpeedLst, &setUp.GpsSendTimeLst, &setUp.GpsSentanceLst})
        list->SetEnabled(setUp.GpsOpt.On(0));
    for (List* list : {&setUp.PhgPowerLst, &setUp.PhgHeightLst, &setUp.PhgGainLst, &setUp.PhgDirLst})
        list->SetEnabled(setUp.GpsOpt.On(1));
}

void SwitchAlias(Halvern& halvern)
{
    const auto& setUp = halvern.SetUpfrm;
    if (!setUp.MyAliasOpt.On(1) || setUp.SettingUp) return;
    halvern.Tell(Icon::None,
                 "Note turning on the digipeating of WIDE1-1 should only be done by stations that are needed\r\n"
                 "to make it possible for Mobiles in this stations area to make it to the local WIDEN-N Digi.\r\n"
                 "Also this station has the blessing of the local APRS community to turn this function on.\r\n"
                 "When this feature is turned on Halvern will subsitute this stations call sign for WIDE1-1.\r\n"
                 "Every time you start Halvern this feature will again default to OFF\r\n"
                 "NOTE failure to follow the above recomendations will cause a huge amount of QRM.");
}

void SwitchIgate(SetUpForm& setUp)
{
    const bool on = setUp.IgateOpt.On(1);
    if (!on) setUp.IgateBIOpt.Select(0);
    setUp.IgateBiDirFrame.SetEnabled(on);
    setUp.IgateBIOpt.SetEnabled(on);
}

void SwitchIgateBothWays(SetUpForm& setUp)
{
    for (Control* control : setUp.GatingControls()) control->SetEnabled(setUp.IgateBIOpt.On(1));
}

// --- the weather file ------------------------------------------------------------------------------------------------

void PickDrive(Halvern& halvern)
{
    auto& setUp = halvern.SetUpfrm;
    if (halvern.Outside.files.FolderExists(setUp.Drive1.Text())) return setUp.Dir1.SetPath(setUp.Drive1.Text());
    halvern.Tell(Icon::None, SystemText(ENOENT));
    setUp.Drive1.Select(0);
}

void PickFolder(SetUpForm& setUp)
{
    auto& folder = setUp.Dir1;
    if (folder.Selected() < 0) return;
    const std::string name = folder.Text();
    const std::string path = folder.Path();
    if (name != "..") return folder.SetPath((path.ends_with("/") ? path : path + "/") + name);
    const auto cut = path.find_last_of("/\\", path.size() < 2 ? 0 : path.size() - 2);
    folder.SetPath(cut == 0 || cut == std::string::npos ? "/" : path.substr(0, cut));
}

void ListFolders(Halvern& halvern)
{
    auto& setUp = halvern.SetUpfrm;
    setUp.Dir1.Clear();
    if (setUp.Dir1.Path() != "/") setUp.Dir1.Add("..");
    for (const auto& name : halvern.Outside.files.Folders(setUp.Dir1.Path())) setUp.Dir1.Add(name);
    setUp.File1.SetPath(setUp.Dir1.Path());
}

void ListFiles(Halvern& halvern)
{
    auto& list = halvern.SetUpfrm.File1;
    list.Clear();
    for (const auto& name : halvern.Outside.files.Names(list.Path())) list.Add(name);
}

void FilePickersAtHome(Halvern& halvern)
{
    auto& setUp = halvern.SetUpfrm;
    setUp.Drive1.Clear();
    for (const auto drive : {"/", "/media", "/mnt", "/run/media"})
        if (halvern.Outside.files.FolderExists(drive)) setUp.Drive1.Add(drive);
    setUp.Drive1.Preselect(setUp.Drive1.Count() > 0 ? 0 : -1);
    setUp.Dir1.SetPath(halvern.ProgramFolder);
    setUp.File1.Preselect(setUp.File1.Count() > 0 ? 0 : -1);
}

// --- help ------------------------------------------------------------------------------------------------------------

void ShowHelpText(Halvern& halvern, const std::string& name)
{
    const auto path = halvern.ProgramFolder + "\\" + name;
    if (halvern.Outside.files.Exists(path))
        halvern.Outside.dialogs.ShowText(path);
    else
        halvern.Tell(Icon::None, SystemText(ENOENT));
}

void ShowHelp(Halvern& halvern)
{
    halvern.Outside.dialogs.Help(halvern.ProgramFolder + "\\halvern.chm");
}

void ShowHelpPage(Halvern& halvern, const std::string& name)
{
    halvern.Outside.dialogs.Help(halvern.ProgramFolder + "\\help\\" + name);
}

void ShowAbout(Halvern& halvern)
{
    halvern.Tell(Icon::Information, "Halvern version " + ProgramVersion() +
                                        "\r\n\r\n"
                                        "A station program for the Automatic Packet Reporting System.\r\n"
                                        "Free software under the GNU General Public License, version 3 or later.");
}

} // namespace halvern
