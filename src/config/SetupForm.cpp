// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/SetupForm.h"

#include "config/IniTable.h"
#include "config/Settings.h"
#include "config/SetupFields.h"
#include "config/SetupRules.h"
#include "map/MapKind.h"
#include "platform/Text.h"
#include "protocol/UtcTime.h"
#include "relay/Beacon.h"
#include "view/ChildWindows.h"

namespace halvern {
namespace {

/// The alternate net's call becomes the destination of own packets. @return false where it is wanted and missing.
bool TakeAlternateNet(Halvern& halvern)
{
    const auto& setUp = halvern.SetUpfrm;
    if (!setUp.AprsMode.On(2)) return true;
    if (setUp.AltNetTxt.Text().empty()) {
        halvern.Tell(Icon::None, "You have activated the Alternet text box but you did not key in an Alternet. Please "
                                 "do so now or deactivate the alternet text box.");
        return false;
    }
    halvern.Engine.OwnDest = setUp.AltNetTxt.Text();
    return true;
}

/// A beacon with the new data goes out at once.
void BeaconSoon(Halvern& halvern)
{
    const auto& main = halvern.ConMdiFrm;
    if (main.PortTnc.Checked() || main.InternetSoc.Connected() || main.SoundSoc.Connected()) StartBeacons(halvern);
}

} // namespace

void LoadSetUp(Halvern& halvern)
{
    auto& setUp = halvern.SetUpfrm;
    FilePickersAtHome(halvern);
    if (!halvern.Engine.ConfigLoaded)
        for (const auto group : {"ALL", "CQ", "QST"}) setUp.MsgGroupLst.Add(group);
    ReadServers(halvern);
    FillInPassword(halvern);
}

void ActivateSetUp(Halvern& halvern)
{
    auto& setUp = halvern.SetUpfrm;
    setUp.SetPlace(SetUpPlace);
    RecordSetUp(halvern);
    const auto now = UtcNow(halvern.Outside.clock);
    setUp.UtcTimeLbl.SetCaption(ZeroFilled(now.month, 2) + "/" + ZeroFilled(now.day, 2) + "/" +
                                ZeroFilled(now.year, 4) + " " + ZeroFilled(now.hour, 2) + ":" +
                                ZeroFilled(now.minute, 2) + ":" + ZeroFilled(now.second, 2));
}

void AcceptSetUp(Halvern& halvern)
{
    auto& setUp = halvern.SetUpfrm;
    RaiseCase(setUp.CallSignTxt); // Enter presses OK while the cursor is still in the field
    if (ValidateSetup(halvern) != "OK" || !PortsAgree(halvern)) return;
    TakeOwnCallAndAlias(halvern);
    const bool changed = BeaconDataChanged(halvern);
    if (!TakeAlternateNet(halvern)) return;
    halvern.Engine.IgateOn = setUp.IgateOpt.On(1);
    halvern.ConMdiFrm.PortsMn.SetEnabled(true);
    setUp.Hide();
    if (changed) BeaconSoon(halvern);
    if (!halvern.Engine.ConfigLoaded) ChooseDosMapsByDefault(halvern);
    setUp.TabCancelCmd.SetEnabled(true);
    setUp.TabSaveCmd.SetEnabled(true);
    SetWindowOn(halvern, 1, true);
}

void CancelSetUp(Halvern& halvern)
{
    RestoreSetUp(halvern);
    if (halvern.SetUpfrm.AprsMode.On(2) && !halvern.SetUpfrm.AltNetTxt.Text().empty())
        halvern.Engine.OwnDest = halvern.SetUpfrm.AltNetTxt.Text();
    halvern.SetUpfrm.Hide();
}

void CloseSetUp(Halvern& halvern)
{
    if (halvern.SetUpfrm.TabCancelCmd.Enabled()) CancelSetUp(halvern);
}

} // namespace halvern
