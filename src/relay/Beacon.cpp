// SPDX-License-Identifier: GPL-3.0-or-later
#include "relay/Beacon.h"

#include <algorithm>
#include <array>

#include "engine/OwnTexts.h"
#include "engine/ProcessPacket.h"
#include "platform/Text.h"
#include "ports/InternetPort.h"
#include "ports/Psk63Send.h"
#include "ports/SendPacket.h"
#include "ports/SoundPort.h"
#include "ports/TncPort.h"
#include "relay/Paths.h"
#include "state/Rows.h"

namespace halvern {
namespace {

constexpr int SteadyInterval = 60000;
constexpr int MinutesAHop = 10, LongestRate = 30;
constexpr int Psk63Rate = 5; // minutes
constexpr int UnreadablePath = 100;
constexpr char WeatherSymbol = '_';

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

/// One of the own packets; the payload is in its escaped form once it has been sent by radio.
struct OwnPacket {
    std::string payload;
    std::string line;
};

OwnPacket PacketOf(const Halvern& halvern, const std::string& payload)
{
    const auto path = PathOrNothing(halvern.SetUpfrm.UnPath.Text());
    return {payload, OwnLine(halvern.Engine.OwnCall, halvern.Engine.OwnDest, path, payload)};
}

struct Beacon {
    OwnPacket position, status;
};

Psk63Packet AsPsk63(const Halvern& halvern, const OwnPacket& packet)
{
    return {OwnLine(halvern.Engine.OwnCall, halvern.Engine.OwnDest, "", packet.payload), packet.line};
}

void SendByPsk63(Halvern& halvern, const Beacon& beacon)
{
    auto position = AsPsk63(halvern, beacon.position);
    position.behind = "\r";
    SendByPsk63(halvern, {position, AsPsk63(halvern, beacon.status)});
}

void SendByRadio(Halvern& halvern, OwnPacket& packet)
{
    SendPacket(halvern, halvern.Engine.OwnDest, halvern.Engine.OwnCall, PathOrNothing(halvern.SetUpfrm.UnPath.Text()),
               packet.payload, "");
}

/// The engine sees the status first, the air the position.
void TellEngine(Halvern& halvern, Beacon& beacon)
{
    ProcessPacket(halvern, beacon.status.line, "POSOUT");
    ProcessPacket(halvern, beacon.position.line, "POSOUT");
}

void SendGroup(Halvern& halvern, Beacon& beacon)
{
    TellEngine(halvern, beacon);
    SendByRadio(halvern, beacon.position);
    SendByRadio(halvern, beacon.status);
    SendToInternet(halvern, beacon.position.payload);
    SendToInternet(halvern, beacon.status.payload);
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
    auto& form = halvern.ConMdiFrm;
    if (form.InternetSoc.Connected()) OpenCloseInternet(halvern);
    if (form.SoundSoc.Connected()) OpenCloseSound(halvern);
    if (form.PortTnc.Checked()) OpenCloseTnc(halvern);
}

void RepeatByPsk63(Halvern& halvern, Beacon& beacon)
{
    auto& engine = halvern.Engine;
    if (engine.Psk63Minutes != Psk63Rate) return;
    if (halvern.ConMdiFrm.Psk63Soc.Connected()) {
        if (engine.BeaconMinutes != 0) TellEngine(halvern, beacon);
        SendByPsk63(halvern, beacon);
    }
    engine.Psk63Minutes = 0;
}

void SteadyMinute(Halvern& halvern, Beacon& beacon)
{
    auto& engine = halvern.Engine;
    if (engine.BeaconMinutes == 0) SendGroup(halvern, beacon);
    CountUp(engine.BeaconMinutes);
    if (engine.BeaconMinutes == engine.BeaconRate) engine.BeaconMinutes = 0;
    CountUp(engine.Psk63Minutes);
}

void TakeStep(Halvern& halvern, Beacon& beacon)
{
    auto& timer = halvern.ConMdiFrm.Timer2;
    if (timer.Interval() == SteadyInterval) return SteadyMinute(halvern, beacon);
    const auto step = std::ranges::find(FastPhase, timer.Interval(), &FastStep::interval);
    if (step == FastPhase.end()) return;
    timer.SetInterval(step->next);
    SendGroup(halvern, beacon);
    if (step->psk63 && halvern.ConMdiFrm.Psk63Soc.Connected()) SendByPsk63(halvern, beacon);
}

} // namespace

void BeaconTick(Halvern& halvern)
{
    auto& timer = halvern.ConMdiFrm.Timer2;
    const auto& setUp = halvern.SetUpfrm;
    timer.SetEnabled(false);
    if (!SetRate(halvern)) return CloseOnBadPath(halvern);
    if (OwnSymbol(setUp)[1] == WeatherSymbol) return;
    Beacon beacon{PacketOf(halvern, OwnPosition(setUp)), PacketOf(halvern, OwnStatus(setUp))};
    RepeatByPsk63(halvern, beacon);
    TakeStep(halvern, beacon);
    timer.SetEnabled(true);
}

void BeaconNow(Halvern& halvern)
{
    if (OwnSymbol(halvern.SetUpfrm)[1] == WeatherSymbol) return;
    auto packet = PacketOf(halvern, "=" + std::string(positionRow::FromLatitude(halvern.PositionFrm.PosLst.Row(0))));
    SendByRadio(halvern, packet);
    SendToInternet(halvern, packet.payload);
    if (halvern.ConMdiFrm.Psk63Soc.Connected()) SendByPsk63(halvern, {AsPsk63(halvern, packet)});
}

} // namespace halvern
