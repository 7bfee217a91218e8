// SPDX-License-Identifier: GPL-3.0-or-later
#include "relay/Beacon.h"

#include <algorithm>
#include <array>

#include "engine/ProcessPacket.h"
#include "platform/Text.h"
#include "protocol/PacketHeader.h"
#include "protocol/Paths.h"
#include "state/Rows.h"
#include "transmit/OwnTexts.h"
#include "transmit/Send.h"

namespace halvern {
namespace {

constexpr int SteadyInterval = 60000;
constexpr int MinutesAHop = 10, LongestRate = 30;
constexpr int Psk63Rate = 5; // minutes
constexpr int UnreadablePath = 100;

struct FastStep {
    int interval, next;
    bool psk63;
};

constexpr std::array<FastStep, 4> FastPhase{
    {{1, 8000, false}, {8000, 16000, true}, {16000, 32000, false}, {32000, SteadyInterval, false}}};

constexpr const char* BadPath =
    "An Error has been detected in your Default Unproto Path. Please change your Default Unproto Path located on the "
    "Setup/Station Tab. Halvern will not transmit your Position or Status packets until you do so. All your open Ports "
    "will now be closed.";

Packet PacketOf(const Halvern& halvern, const std::string& payload)
{
    const std::string path(PathOrNothing(halvern.SetUpfrm.UnPath.Text()));
    return {.information = payload,
            .path = path,
            .psk63Line = PacketLine(halvern.Engine.OwnCall, halvern.Engine.OwnDest, path, payload)};
}

struct Beacon {
    Packet position, status;
};

void Send(Halvern& halvern, const Beacon& beacon, Road roads)
{
    Send(halvern, std::vector{beacon.position, beacon.status}, roads);
}

/// The engine sees the status first, the air the position.
void TellEngine(Halvern& halvern, const Beacon& beacon, std::string_view tag = "POSOUT")
{
    for (const auto* packet : {&beacon.status, &beacon.position}) {
        auto line = packet->psk63Line; // the packet as a text line, path and all
        ProcessPacket(halvern, line, tag);
    }
}

/// Works out `BeaconRate` when the path has changed. The text is remembered before it is tested, so a bad one is told
/// once, and a port that the operator opens in spite of it beacons at the rate before. @return false for a bad path.
bool SetRate(Halvern& halvern)
{
    auto& engine = halvern.Engine;
    const auto& setting = halvern.SetUpfrm.UnPath.Text();
    const auto path = PathOrNothing(setting);
    if (path.empty()) {
        engine.BeaconRate = MinutesAHop;
        return true;
    }
    if (setting == engine.CheckedPath) return true;
    engine.CheckedPath = setting;
    const auto checked = CheckUnprotoPath(path);
    const int hops = checked == "Path No Good" ? UnreadablePath : PathHopCount(checked);
    if (hops == UnreadablePath) return false;
    engine.BeaconRate = static_cast<short>(std::min((hops == 0 ? 1 : hops) * MinutesAHop, LongestRate));
    return true;
}

void CloseOnBadPath(Halvern& halvern)
{
    halvern.Tell(Icon::Critical, BadPath);
    CloseMainPorts(halvern.ConMdiFrm, false);
}

void RepeatByPsk63(Halvern& halvern, const Beacon& beacon)
{
    auto& engine = halvern.Engine;
    if (engine.Psk63Minutes != Psk63Rate) return;
    if (halvern.ConMdiFrm.Psk63Soc.Connected()) {
        if (engine.BeaconMinutes != 0) TellEngine(halvern, beacon);
        Send(halvern, beacon, Road::Psk63);
    }
    engine.Psk63Minutes = 0;
}

void SendGroup(Halvern& halvern, const Beacon& beacon, Road roads)
{
    TellEngine(halvern, beacon);
    Send(halvern, beacon, roads);
}

void SteadyMinute(Halvern& halvern, const Beacon& beacon)
{
    auto& engine = halvern.Engine;
    if (engine.BeaconMinutes == 0) SendGroup(halvern, beacon, Road::Radio | Road::Internet);
    CountUp(engine.BeaconMinutes);
    if (engine.BeaconMinutes == engine.BeaconRate) engine.BeaconMinutes = 0;
    CountUp(engine.Psk63Minutes);
}

void TakeStep(Halvern& halvern, const Beacon& beacon)
{
    auto& timer = halvern.ConMdiFrm.Timer2;
    if (timer.Interval() == SteadyInterval) return SteadyMinute(halvern, beacon);
    const auto step = std::ranges::find(FastPhase, timer.Interval(), &FastStep::interval);
    if (step == FastPhase.end()) return;
    timer.SetInterval(step->next);
    SendGroup(halvern, beacon, Road::Radio | Road::Internet | (step->psk63 ? Road::Psk63 : Road::None));
}

} // namespace

void BeaconTick(Halvern& halvern)
{
    auto& timer = halvern.ConMdiFrm.Timer2;
    const auto& setUp = halvern.SetUpfrm;
    timer.SetEnabled(false);
    if (!SetRate(halvern)) return CloseOnBadPath(halvern);
    if (HasWeatherSymbol(setUp)) return;
    const Beacon beacon{PacketOf(halvern, OwnPosition(setUp)), PacketOf(halvern, OwnStatus(setUp))};
    RepeatByPsk63(halvern, beacon);
    TakeStep(halvern, beacon);
    timer.SetEnabled(true);
}

void BeaconFix(Halvern& halvern, const Fix& fix)
{
    const auto& setUp = halvern.SetUpfrm;
    const auto position = OwnPosition(setUp, fix.latitude, fix.longitude, fix.motion);
    const Beacon beacon{PacketOf(halvern, position), PacketOf(halvern, OwnStatus(setUp))};
    TellEngine(halvern, beacon, "GPS");
    Send(halvern, beacon, Road::Radio | Road::Psk63);
}

void StartBeacons(Halvern& halvern)
{
    auto& main = halvern.ConMdiFrm;
    if (!main.GpsMenu.Checked() && !main.WeatherMenu.Checked()) main.Timer2.Start(1);
}

void CloseMainPorts(MainForm& main, bool psk63)
{
    if (main.InternetSoc.Connected()) main.PortIp.Click();
    if (main.SoundSoc.Connected()) main.SoundCardMenu.Click();
    if (psk63 && main.Psk63Soc.Connected()) main.Psk63Menu.Click();
    if (main.PortTnc.Checked()) main.PortTnc.Click();
}

void BeaconNow(Halvern& halvern)
{
    if (HasWeatherSymbol(halvern.SetUpfrm)) return;
    const auto row = halvern.PositionFrm.PosLst.Row(0);
    Send(halvern, PacketOf(halvern, "=" + std::string(positionRow::FromLatitude(row))),
         Road::Radio | Road::Internet | Road::Psk63);
}

} // namespace halvern
