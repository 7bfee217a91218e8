// SPDX-License-Identifier: GPL-3.0-or-later
#include "relay/Igate.h"

#include <algorithm>
#include <array>
#include <optional>

#include "platform/Text.h"
#include "protocol/PacketHeader.h"
#include "protocol/Paths.h"
#include "protocol/ThirdParty.h"
#include "state/Rows.h"
#include "transmit/Send.h"

namespace halvern {
namespace {

constexpr int UnknownHops = 100; ///< of a path that can't be read
constexpr int HoldSecond = 1000; // milliseconds
constexpr int RowsLookedAt = 10; ///< raw rows in which another gate's copy is looked for
constexpr std::size_t LongestCall = 9;
constexpr std::string_view RadioDest = "APRS";

/// A line of either side with the places that the rules speak of. Views into the line.
struct GateLine {
    std::string_view source; ///< all before the first ">"
    std::string_view head;   ///< all before the first ":"
    std::string_view info;   ///< all behind it, at least one character
    char Type() const { return info.front(); }
};

/// @return nothing for a line without ">", without ":", or with nothing behind its first ":"
std::optional<GateLine> ReadLine(std::string_view line)
{
    const auto arrow = PositionOf(line, '>'), colon = PositionOf(line, ':');
    if (arrow == 0 || colon == 0 || colon == line.size()) return {};
    return GateLine{Columns(line, 1, arrow - 1), Columns(line, 1, colon - 1), Columns(line, colon + 1)};
}

/// Destination and path; empty where the header is not well formed.
PacketHeader HeaderOf(const std::string& line)
{
    return ReadPacketHeader(Columns(line, 1, PositionOf(line, ':'))).value_or(PacketHeader{});
}

// --- stations heard on radio -----------------------------------------------------------------------------------------

std::string HeardRow(std::string_view source, int hops)
{
    return CallField(source) + (hops == 0 ? "0" : SignedNumber(hops));
}

int HopsIn(const std::string& row)
{
    return static_cast<int>(LeadingNumber(heardOnRfRow::Hops(row)));
}

/// The hops of a station heard on radio, by its call field.
std::optional<int> HopsOf(const Halvern& halvern, std::string_view callField)
{
    const auto& heard = halvern.ConMdiFrm.HeardOnRfLst;
    const int row = heard.Find(callField);
    if (row == NotFound) return {};
    return HopsIn(heard.Row(row));
}

/// Keeps the smallest count; direct is direct, whatever was there.
void KeepHops(KeyedList& heard, std::string_view source, std::string_view path)
{
    const int hops = path.empty() ? 0 : PathHopCount(path);
    const int row = heard.Find(CallField(source));
    if (row == NotFound)
        heard.Add(HeardRow(source, hops));
    else if (path.empty() || HopsIn(heard.Row(row)) > hops)
        heard.Replace(row, HeardRow(source, hops));
}

// --- radio to Internet -----------------------------------------------------------------------------------------------

/// Words that only a packet bears which has been on the Internet, or must not go there. They are looked for in the
/// whole line: a packet that only speaks of them costs less than a loop.
constexpr std::array<std::string_view, 12> InternetWords{"TCPIP", "TCPXX", "qAC", "qAX", "qAU", "qAo",
                                                         "qAO",   "qAS",   "qAr", "qAR", "qAZ", "qAI"};

std::optional<Decision> SaysInternet(const std::string& line, const GateLine& packet)
{
    for (const auto word : InternetWords)
        if (const auto at = line.find(word); at != std::string::npos)
            return Decision(at < packet.head.size() ? Reason::PathSays : Reason::TextSays, word);
    return {};
}

/// A message for a station that is heard direct stays on radio.
Decision GateToInternet(Halvern& halvern, const std::string& line, const GateLine& packet)
{
    if (packet.Type() == ':') {
        const auto hops = HopsOf(halvern, Columns(packet.info, 2, 9));
        if (hops == 0) return Reason::AddresseeNear;
        if (hops == UnknownHops) return Reason::HopsUnknown;
    }
    if (!halvern.ConMdiFrm.InternetSoc.Connected()) return Reason::NoOpenPort;
    PassToInternet(halvern, line);
    return Reason::Passed;
}

Decision FromRadio(Halvern& halvern, const std::string& line, const GateLine& packet)
{
    if (packet.source == halvern.Engine.OwnCall) return Reason::OwnPacket;
    if (packet.Type() == '}') return Reason::ThirdParty;
    if (packet.Type() == '?') return Reason::Query;
    if (const auto said = SaysInternet(line, packet)) return *said;
    KeepHops(halvern.ConMdiFrm.HeardOnRfLst, packet.source, HeaderOf(line).path);
    return GateToInternet(halvern, line, packet);
}

// --- Internet to radio -----------------------------------------------------------------------------------------------

enum class PathOut { None, Default };

/// Puts a packet of the Internet on radio, under another destination if its own is not needed to read it.
Decision ToRadio(Halvern& halvern, const GateLine& packet, std::string_view dest, PathOut path, Reason reason)
{
    if (!RadioOpen(halvern)) return Reason::NoOpenPort;
    const auto& setting = halvern.SetUpfrm.UnPath.Text();
    Packet out{ThirdPartyField(packet.source, dest, halvern.Engine.OwnCall, packet.info)};
    if (path == PathOut::Default) out.path = PathOrNothing(setting);
    out.dest = RadioDest;
    Send(halvern, std::move(out), Road::Radio);
    return reason;
}

/// The position and objects of buddies.
Decision PassForBuddy(Halvern& halvern, const std::string& line, const GateLine& packet)
{
    constexpr std::string_view reports = "!@/=", micE = "\x1C\x1D'`";
    const bool isMicE = micE.find(packet.Type()) != std::string_view::npos;
    const bool isReport = reports.find(packet.Type()) != std::string_view::npos && ColumnAt(packet.info, 2) != '!';
    if (!isMicE && !isReport && packet.Type() != ';') return Reason::NoGatedKind;
    const auto name = packet.Type() == ';' ? Columns(packet.info, 2, 9) : packet.source;
    if (halvern.SetUpfrm.IgateBudsCombo.IndexOf(name) == NotFound) return Reason::NoBuddy;
    const auto dest = isMicE ? HeaderOf(line).dest : RadioDest; // half of a Mic-E position stands in the destination
    if (dest.empty()) return Reason::NoPacket;
    return ToRadio(halvern, packet, dest, PathOut::None, Reason::PassedForBuddy);
}

/// The sender's position as the stores have it, ready to follow a message; empty where there is none that is plain.
std::string PositionOfSender(const Halvern& halvern, std::string_view source)
{
    const auto& stations = halvern.PositionFrm.PosLst;
    const int index = stations.Find(CallField(source));
    if (index == NotFound || Trimmed(positionRow::Call(stations.Row(index))) != source) return {};
    const auto& row = stations.Row(index);
    const char type = ColumnAt(row, positionRow::Type);
    if (type == '!' || type == '=') return type + std::string(positionRow::FromLatitude(row));
    if (type == '@' || type == '/') return std::string(positionRow::Report(row));
    return {};
}

/// A message goes out, and behind it the position of its sender.
Decision SendMessage(Halvern& halvern, const GateLine& packet, Reason reason)
{
    const auto sent = ToRadio(halvern, packet, RadioDest, PathOut::Default, reason);
    const auto position = PositionOfSender(halvern, packet.source);
    if (!position.empty())
        ToRadio(halvern, {packet.source, packet.head, position}, RadioDest, PathOut::Default, reason);
    return sent;
}

/// Why a message stays on the Internet, or nothing.
std::optional<Decision> WhyNotToRadio(const Halvern& halvern, const GateLine& packet)
{
    const bool isCall = packet.source.size() <= LongestCall;
    if (isCall && HopsOf(halvern, CallField(packet.source)) == 0) return Reason::SenderNear;
    const auto hops = HopsOf(halvern, Columns(packet.info, 2, 9));
    const int limit = std::max(0, halvern.SetUpfrm.IgateHopOpt.Selected());
    if (!hops) return Reason::AddresseeNotHeard;
    if (*hops == UnknownHops) return Reason::HopsUnknown;
    if (*hops > limit) return Decision(Reason::TooManyHops, *hops, limit);
    return {};
}

int HoldSeconds(const Halvern& halvern)
{
    return halvern.SetUpfrm.IgateTimeLbl.Number();
}

Decision HoldOrSend(Halvern& halvern, const std::string& line, const GateLine& packet)
{
    auto& main = halvern.ConMdiFrm;
    if (const auto held = ReadLine(main.IgMesSaveTxt.Text()))
        Note(halvern, Way::ToRadio, held->source, held->info, Reason::Replaced);
    if (HoldSeconds(halvern) != 0) {
        main.IgMesSaveTxt.SetText(line);
        main.IgateMessHold.Start(HoldSecond);
        return Reason::Held;
    }
    main.IgMesSaveTxt.SetText("");
    main.IgateMessHold.Stop();
    return SendMessage(halvern, packet, Reason::Passed);
}

/// A sender that bears one of the weather calls in its own.
bool IsWeatherCall(const Halvern& halvern, std::string_view source)
{
    const auto& calls = halvern.SetUpfrm.WxMessCombo;
    for (int i = 0; i < calls.Count(); ++i)
        if (Holds(source, calls.Row(i))) return true;
    return false;
}

Decision FromInternet(Halvern& halvern, const std::string& line, const GateLine& packet)
{
    if (packet.source == halvern.Engine.OwnCall) return Reason::OwnPacket;
    if (packet.Type() != ':') return PassForBuddy(halvern, line, packet);
    // a weather message goes out by its sender's right, and once more by its addressee's
    std::optional<Decision> byWeatherCall;
    if (IsWeatherCall(halvern, packet.source))
        byWeatherCall = ToRadio(halvern, packet, RadioDest, PathOut::Default, Reason::PassedForWeatherCall);
    if (const auto refusal = WhyNotToRadio(halvern, packet)) return byWeatherCall.value_or(*refusal);
    if (byWeatherCall) Note(halvern, Way::ToRadio, packet.source, packet.info, *byWeatherCall);
    return HoldOrSend(halvern, line, packet);
}

/// Has the message been on radio as another gate's third-party packet? The engine unwraps those: their rows in the raw
/// store are marked, and hold the inner packet.
bool PassedByAnotherGate(const Halvern& halvern, std::string_view held)
{
    const auto& raw = halvern.TerminalFrm.RawPacketLst;
    const auto message = MessageOf(held);
    for (int i = std::max(0, raw.Count() - RowsLookedAt); i < raw.Count(); ++i) {
        const auto carried = raw.Marked(i) ? std::string_view(raw.Row(i)) : CarriedPacket(raw.Row(i));
        if (MessageOf(carried) == message) return true;
    }
    return false;
}

} // namespace

Decision RfGateStep(Halvern& halvern, const std::string& line)
{
    const auto packet = ReadLine(line);
    if (!packet) return Reason::NoPacket;
    return Note(halvern, Way::ToInternet, packet->source, packet->info, FromRadio(halvern, line, *packet));
}

Decision InternetGateStep(Halvern& halvern, const std::string& line)
{
    if (!halvern.SetUpfrm.IgateBIOpt.On(1)) return Reason::Off;
    const auto packet = ReadLine(line);
    if (!packet || packet->source.empty()) return Reason::NoPacket;
    return Note(halvern, Way::ToRadio, packet->source, packet->info, FromInternet(halvern, line, *packet));
}

Decision MessageHoldTick(Halvern& halvern)
{
    auto& main = halvern.ConMdiFrm;
    main.IgateMessHold.SetEnabled(false);
    const auto line = main.IgMesSaveTxt.Text();
    const auto packet = ReadLine(line);
    if (!packet) return Reason::NoPacket;
    const auto end = [&] {
        main.IgateMessHold.SetInterval(0);
        main.IgMesSaveTxt.SetText("");
    };
    const auto noted = [&](const Decision& decision) {
        return Note(halvern, Way::ToRadio, packet->source, packet->info, decision);
    };
    if (HoldSeconds(halvern) <= ++main.IgateHoldCount) {
        end();
        const auto sent = SendMessage(halvern, *packet, Reason::PassedAfterHold);
        main.IgateHoldCount = 0;
        return noted(sent);
    }
    if (PassedByAnotherGate(halvern, line)) {
        end(); // the seconds are kept: the next hold is that much shorter
        return noted(Reason::AnotherGateFirst);
    }
    main.IgateMessHold.SetEnabled(true);
    return Reason::Held;
}

} // namespace halvern
