// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/Settings.h"

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

/// Three older copies stay beside a file, ".1" the newest. @return what went wrong, or an empty text.
std::string KeepOlderCopies(Files& files, const std::string& path, std::string_view old)
{
    const auto fresh = path + ".0";
    if (auto fault = files.Write(fresh, old); !fault.empty()) return fault;
    files.Remove(path + ".3");
    files.Rename(path + ".2", path + ".3");
    files.Rename(path + ".1", path + ".2");
    files.Rename(fresh, path + ".1");
    return {};
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
    if (fault.empty()) fault = files.Write(path, bytes);
    if (fault.empty()) return true;
    halvern.Tell(Icon::Critical, path + " could not be written: " + fault + ". It still is as it was.");
    return false;
}

void TellUnreadable(Halvern& halvern, const std::string& path, const std::string& why, const std::string& effect)
{
    halvern.Tell(Icon::Critical, path + " could not be read: " + why + ". " + effect);
}

} // namespace

void ReadSettings(Halvern& halvern)
{
    const auto path = halvern.ProgramFolder + SettingsFile;
    if (!halvern.Outside.files.Exists(path)) return;
    const auto effect = "Halvern starts as on a first run, and leaves this file as it is until you save.";
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
    halvern.Engine.ConfigLoaded = true;
    halvern.ConMdiFrm.PortsMn.SetEnabled(true);
    halvern.ConMdiFrm.FrmMenu(1).SetEnabled(true);
    halvern.Tell(Icon::None, "Your Configuration is now Saved.\r\nEnjoy 73 DE K9ZZZ");
}

} // namespace halvern
