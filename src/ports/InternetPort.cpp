// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/InternetPort.h"

#include "engine/ProcessPacket.h"
#include "platform/Text.h"
#include "ports/PortRules.h"
#include "relay/Beacon.h"
#include "relay/Igate.h"

namespace halvern {
namespace {

/// Why the port can't open now, or nullptr.
const char* Obstacle(const Halvern& halvern)
{
    if (halvern.ConMdiFrm.GpsMenu.Checked())
        return "You cannot open the TCP/IP port while the GPS Port is open. Please close the GPS port then open the "
               "TCP/IP Port.";
    if (halvern.SetUpfrm.IntDomainCombo.Text().empty())
        return "You have to select a APRServer name first. Please go to the setup form internet tab and either type "
               "in a server name or select one from the list.";
    if (halvern.SetUpfrm.APRServePortTxt.Text().empty())
        return "You have to select a APRServer Port number first. Please go to the setup form internet tab and type "
               "in a Port nunber.";
    return nullptr;
}

void LogIn(Halvern& halvern)
{
    auto& form = halvern.ConMdiFrm;
    const auto& setUp = halvern.SetUpfrm;
    form.InternetSoc.Write("user " + halvern.Engine.OwnCall + " pass " + setUp.APRServePassTxt.Text() +
                           " vers HALVERN 01 filter " + setUp.APRServeFilterTxt.Text() + std::string(CrLf));
    form.ServerLoggedIn = true;
    StartBeacons(halvern);
}

} // namespace

void OpenCloseInternet(Halvern& halvern)
{
    auto& form = halvern.ConMdiFrm;
    if (form.InternetSoc.Connecting()) return form.InternetSoc.Disconnect(); // a second click gives the try up
    if (form.PortIp.Checked()) return ClosePort(halvern, MainPort::Internet);
    if (const char* obstacle = Obstacle(halvern)) return halvern.Tell(Icon::Critical, obstacle);
    const auto& setUp = halvern.SetUpfrm;
    if (!ConnectTo(halvern, form.InternetSoc, setUp.IntDomainCombo.Text(), setUp.APRServePortTxt.Text(),
                   {"Internet connection failed.", Icon::Critical}))
        return;
    if (const char* obstacle = Obstacle(halvern)) { // one that came while it connected
        form.InternetSoc.Disconnect();
        return halvern.Tell(Icon::Critical, obstacle);
    }
    form.ServerLoggedIn = false;
    form.ServerAnswer.clear();
    PortOpened(halvern, MainPort::Internet);
}

void ReceiveFromInternet(Halvern& halvern)
{
    auto line = halvern.ConMdiFrm.InternetSoc.ReadAll();
    if (!halvern.ConMdiFrm.ServerLoggedIn) return LogIn(halvern);
    if (line.starts_with("# logresp ")) halvern.ConMdiFrm.ServerAnswer = line.substr(0, line.find_first_of(CrLf));
    ProcessPacket(halvern, line, "TCPIP");
    InternetGateStep(halvern, line);
}

} // namespace halvern
