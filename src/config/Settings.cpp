// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/Settings.h"

#include <algorithm>

#include "config/Fonts.h"
#include "config/IniTable.h"
#include "config/Servers.h"
#include "config/SetupFields.h"
#include "config/SetupForm.h"
#include "config/SetupLists.h"
#include "config/SetupRules.h"
#include "platform/Text.h"
#include "protocol/Passcode.h"

namespace halvern {
namespace {

constexpr const char* SettingsFile = "\\Halvern.INI";
constexpr const char* ServersFile = "\\APRSDomain.INI";

std::string Beside(const std::string& path)
{
    return path + ".0";
}

/// @return what went wrong, or an empty text
std::string WriteBeside(Files& files, const std::string& path, std::string_view bytes)
{
    files.Remove(Beside(path)); // it may be a link to somewhere else
    return files.Write(Beside(path), bytes);
}

/// Three older copies stay beside a file, ".1" the newest. @return what went wrong, or an empty text.
std::string KeepOlderCopies(Files& files, const std::string& path, std::string_view old)
{
    if (auto fault = WriteBeside(files, path, old); !fault.empty()) return fault;
    files.Remove(path + ".3");
    files.Rename(path + ".2", path + ".3");
    files.Rename(path + ".1", path + ".2");
    files.Rename(Beside(path), path + ".1");
    return {};
}

/// The list of servers comes with the program, often as a link into data that all stations share: who saves gets a list
/// of his own in the link's place. Any other link stays, and what it leads to is written.
std::string WriteFile(Files& files, const std::string& path, std::string_view bytes, bool inLinksPlace)
{
    if (!inLinksPlace) return files.Write(path, bytes);
    if (auto fault = WriteBeside(files, path, bytes); !fault.empty()) return fault;
    return files.Rename(Beside(path), path) ? "" : "its place is taken";
}

/// Puts a file in the place of an older one. @return false where the operator was told that it can't be written.
bool Replace(Halvern& halvern, const std::string& name, const std::string& bytes)
{
    auto& files = halvern.Outside.files;
    const auto path = halvern.ProgramFolder + name;
    std::string fault;
    if (const auto old = files.Read(path)) {
        if (*old == bytes) return true;
        fault = KeepOlderCopies(files, path, *old);
    }
    if (fault.empty()) fault = WriteFile(files, path, bytes, name == ServersFile);
    if (fault.empty()) return true;
    halvern.Tell(Icon::Critical, files.Shown(path) + " could not be written: " + fault + ". It still is as it was.");
    return false;
}

void TellUnreadable(Halvern& halvern, const std::string& path, const std::string& why, const std::string& effect)
{
    const auto& files = halvern.Outside.files;
    const auto copy = path + ".1";
    halvern.Tell(
        Icon::Critical,
        files.Shown(path) + " could not be read: " + why + ". " + effect +
            (files.Exists(copy) ? " What stood in it before the last save is in " + files.Shown(copy) + "." : ""));
}

/// Something that is no plain file has the name: a folder, a pipe, a link that leads nowhere.
bool TakenByNoFile(const Halvern& halvern, const std::string& name)
{
    const auto& files = halvern.Outside.files;
    const auto isName = [wanted = LowerCase(name.substr(1))](const std::string& entry) {
        return LowerCase(entry) == wanted;
    };
    return std::ranges::any_of(files.Names(halvern.ProgramFolder), isName) ||
           std::ranges::any_of(files.Folders(halvern.ProgramFolder), isName);
}

} // namespace

void ReadSettings(Halvern& halvern)
{
    const auto path = halvern.ProgramFolder + SettingsFile;
    const auto effect = "Halvern starts as on a first run, and leaves this file as it is until you save.";
    if (!halvern.Outside.files.Exists(path)) {
        if (TakenByNoFile(halvern, SettingsFile)) TellUnreadable(halvern, path, "it is no plain file", effect);
        return;
    }
    const auto bytes = halvern.Outside.files.Read(path);
    if (!bytes) return TellUnreadable(halvern, path, "the system refuses it", effect);
    const auto table = SettingsTable(halvern);
    try {
        halvern.Engine.Settings = ReadIni(table, *bytes);
    } catch (const IniFault& fault) {
        return TellUnreadable(halvern, path, fault.what(), effect);
    }
    ApplyIni(table, halvern.Engine.Settings, true);
    SpreadFontsToStores(halvern);
    auto& map = halvern.Map;
    map.PrevRange = map.MapRange;
    map.PrevCenterLat = map.MapCenterLat;
    map.PrevCenterLon = map.MapCenterLon;
    halvern.Engine.ConfigLoaded = true;
    halvern.ConMdiFrm.PortsMn.SetEnabled(true);
}

void TakeSettings(Halvern& halvern)
{
    auto& setUp = halvern.SetUpfrm;
    setUp.SettingUp = true;
    ApplyIni(SettingsTable(halvern), halvern.Engine.Settings, false);
    setUp.SettingUp = false;
    halvern.Engine.Settings.clear();
    ChoosePath(setUp);
    setUp.SetPlace(SetUpPlace);
    FillInPassword(halvern);
    if (halvern.Engine.ConfigLoaded) RecordSaved(halvern);
}

void FillInPassword(Halvern& halvern)
{
    auto& setUp = halvern.SetUpfrm;
    const bool loaded = halvern.Engine.ConfigLoaded;
    setUp.APRServePassTxt.SetEnabled(loaded);
    setUp.APRServePassTxt.SetText(loaded ? APRSPasscode(setUp.CallSignTxt.Text()) : "-1");
}

void ReadServers(Halvern& halvern)
{
    const auto path = halvern.ProgramFolder + ServersFile;
    auto& setUp = halvern.SetUpfrm;
    if (!halvern.Outside.files.Exists(path))
        return halvern.Tell(Icon::None, "Your Halvern install is missing the file APRSDomain.ini. Please download it "
                                        "from the home page of Halvern and copy it into the directory where "
                                        "halvern.exe is located.");
    setUp.IntDomainCombo.Clear();
    const auto effect = "The list of servers is empty; the file stays as it is.";
    const auto bytes = halvern.Outside.files.Read(path);
    if (!bytes) return TellUnreadable(halvern, path, "the system refuses it", effect);
    try {
        TakeServers(setUp, *bytes);
    } catch (const IniFault& fault) {
        TellUnreadable(halvern, path, fault.what(), effect);
    }
}

void SaveSettings(Halvern& halvern)
{
    auto& setUp = halvern.SetUpfrm;
    RaiseCase(setUp.CallSignTxt);
    if (ValidateSetup(halvern) != "OK" || !PortsAgreeForSaving(halvern)) return;
    TakeOwnCallAndAlias(halvern);
    setUp.Hide();
    if (!Replace(halvern, SettingsFile, WriteIni(SettingsTable(halvern)))) return;
    if (setUp.IntDomainCombo.Count() > 0 && !Replace(halvern, ServersFile, ServersAsText(setUp))) return;
    RecordSaved(halvern);
    halvern.Engine.ConfigLoaded = true;
    halvern.ConMdiFrm.PortsMn.SetEnabled(true);
    halvern.ConMdiFrm.FrmMenu(1).SetEnabled(true);
    halvern.Tell(Icon::None, "Your Configuration is now Saved.\r\nEnjoy 73 DE K9ZZZ");
}

} // namespace halvern
