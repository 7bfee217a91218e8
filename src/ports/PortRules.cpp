// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/PortRules.h"

#include <algorithm>
#include <array>

#include "platform/Text.h"
#include "ports/GpsPort.h"
#include "ports/WeatherPort.h"
#include "relay/Beacon.h"

namespace halvern {
namespace {

void ShowNotConnected(Halvern& halvern, const std::string& whom, const std::string& why)
{
    halvern.ConMdiFrm.StatusBar1.SetCaption("Not connected to " + whom + ": " + why);
}

/// The port's own words say no reason: it stands on the status bar, and stays among the notices.
void TellNotConnected(Halvern& halvern, const std::string& whom, const std::string& why, const FailedWords& failed)
{
    ShowNotConnected(halvern, whom, why);
    halvern.Note({whom, "Not connected: " + why});
    halvern.Tell(failed.icon, failed.text);
}

struct PortRule {
    MainPort port;
    MenuItem MainForm::*mark;
    bool radio;                        ///< beacons from its opening on, and keeps a GPS port open
    MenuItem MainForm::*ownMenu;       ///< a menu item that appears with the port
    bool menuStays;                    ///< it disappears only with the last port of all
    const char *opened, *closed;       ///< what the status bar says
    bool (*up)(const MainForm&);       ///< what counts as open for the other main ports
    bool (*carrying)(const MainForm&); ///< what counts as open for the GPS port
    void (*disconnect)(MainForm&);
};

template <Socket MainForm::*socket> bool Connected(const MainForm& form)
{
    return (form.*socket).Connected();
}

template <Socket MainForm::*socket> void Disconnect(MainForm& form)
{
    (form.*socket).Disconnect();
}

const std::array<PortRule, 4> Rules{{
    {MainPort::Tnc, &MainForm::PortTnc, true, nullptr, false, "TNC Port Open", "TNC Port Closed",
     [](const MainForm& form) { return form.PortTnc.Checked(); },
     [](const MainForm& form) { return form.MSComm1.IsOpen(); }, [](MainForm& form) { form.MSComm1.Close(); }},
    {MainPort::Internet, &MainForm::PortIp, false, &MainForm::CgiFinduMenu, true, "TCP/IP Port Open",
     "TCP/IP Port Closed", Connected<&MainForm::InternetSoc>, Connected<&MainForm::InternetSoc>,
     Disconnect<&MainForm::InternetSoc>},
    {MainPort::Sound, &MainForm::SoundCardMenu, true, nullptr, false, "Sound Card Port Open", "Sound Card Port Closed",
     Connected<&MainForm::SoundSoc>, Connected<&MainForm::SoundSoc>, Disconnect<&MainForm::SoundSoc>},
    {MainPort::Psk63, &MainForm::Psk63Menu, true, &MainForm::CLRMsgTxtMenu, false, "PSK63 Port Open",
     "PSK63 Port Closed", Connected<&MainForm::Psk63Soc>, Connected<&MainForm::Psk63Soc>,
     Disconnect<&MainForm::Psk63Soc>},
}};

const PortRule& RuleOf(MainPort port)
{
    return *std::ranges::find(Rules, port, &PortRule::port);
}

} // namespace

void StartTransmitter(MainForm& form)
{
    constexpr int decayInterval = 60000; // milliseconds
    constexpr int rawPacketsWindow = 7;
    form.MyObjectsMenu.SetVisible(true);
    form.FrmMenu(rawPacketsWindow).SetEnabled(true);
    form.NetDecayTmr.Start(decayInterval);
}

void StopTransmitter(Halvern& halvern)
{
    auto& form = halvern.ConMdiFrm;
    for (Timer* timer : {&form.Timer2, &halvern.MessageFrm.Timer1, &form.NetDecayTmr}) timer->Stop();
    form.MyObjectsMenu.SetVisible(false);
}

bool ConnectPort(Halvern& halvern, Socket& socket, const FailedWords& failed)
{
    const auto whom = socket.HostName + ":" + std::to_string(socket.RemotePort);
    halvern.ConMdiFrm.StatusBar1.SetCaption("Connecting to " + whom + " ...");
    const int error = socket.Connect();
    if (error == 0) return true;
    if (error == Socket::Stopped)
        ShowNotConnected(halvern, whom, socket.WhyNot());
    else
        TellNotConnected(halvern, whom, socket.WhyNot(), failed);
    return false;
}

bool ConnectTo(Halvern& halvern, Socket& socket, std::string_view host, std::string_view port,
               const FailedWords& failed)
{
    constexpr double highestPort = 65535;
    const std::string digits(Trimmed(port));
    const double number = LeadingNumber(digits);
    socket.HostName = Trimmed(host);
    if (!std::ranges::all_of(digits, IsDigit) || number < 1 || number > highestPort) {
        TellNotConnected(halvern, socket.HostName + ":" + digits, "a port is a number from 1 to 65535", failed);
        return false;
    }
    socket.RemotePort = static_cast<int>(number);
    return ConnectPort(halvern, socket, failed);
}

void PortOpened(Halvern& halvern, MainPort port)
{
    auto& form = halvern.ConMdiFrm;
    const auto& rule = RuleOf(port);
    (form.*rule.mark).SetChecked(true);
    if (rule.ownMenu != nullptr) (form.*rule.ownMenu).SetVisible(true);
    StartTransmitter(form);
    if (rule.radio) StartBeacons(halvern);
    form.StatusBar1.SetCaption(rule.opened);
}

void ClosePort(Halvern& halvern, MainPort port)
{
    auto& form = halvern.ConMdiFrm;
    const auto& rule = RuleOf(port);
    const auto another = [&](const PortRule& each) { return each.port != port && each.up(form); };
    const auto carries = [&](const PortRule& each) { return each.port != port && each.radio && each.carrying(form); };

    (form.*rule.mark).SetChecked(false);
    const bool last = std::ranges::none_of(Rules, another);
    if (rule.ownMenu != nullptr && (last || !rule.menuStays)) (form.*rule.ownMenu).SetVisible(false);
    // the weather first, since its closing wakes the beacons while a port is open, and a socket still is
    if (last && form.WeatherMenu.Checked()) OpenCloseWeather(halvern);
    if (last) StopTransmitter(halvern);
    rule.disconnect(form);
    form.StatusBar1.SetCaption(rule.closed);
    if (rule.radio && form.GpsMenu.Checked() && std::ranges::none_of(Rules, carries)) OpenCloseGps(halvern);
}

} // namespace halvern
