// SPDX-License-Identifier: GPL-3.0-or-later
#include "transmit/Send.h"

#include <utility>

#include "platform/Text.h"
#include "protocol/PacketHeader.h"
#include "transmit/Psk63Send.h"
#include "transmit/SendPacket.h"

namespace halvern {
namespace {

void SendByRadio(Halvern& halvern, Packet& packet, Road roads)
{
    const bool everywhere = Includes(roads, Road::Tnc) && Includes(roads, Road::Sound);
    const auto* const port = everywhere ? "" : Includes(roads, Road::Tnc) ? "TNC" : "SOUND";
    SendPacket(halvern, packet.dest, packet.source, packet.path, packet.information, port);
}

/// As a line that says it was put in here.
void SendToInternet(Halvern& halvern, const Packet& packet)
{
    halvern.ConMdiFrm.InternetSoc.Write(PacketLine(packet.source, packet.dest, "TCPIP*", packet.information) +
                                        std::string(CrLf));
}

Psk63Packet AsPsk63(Packet& packet)
{
    auto text = PacketLine(packet.source, packet.dest, "", packet.information);
    auto line = packet.psk63Line.empty() ? text : std::move(packet.psk63Line);
    return {std::move(text), std::move(line)};
}

} // namespace

Road RoadOf(std::string_view tag)
{
    constexpr std::pair<std::string_view, Road> roads[] = {
        {"TNC", Road::Tnc}, {"SOUND", Road::Sound}, {"PSK63", Road::Psk63}, {"TCPIP", Road::Internet}};
    for (const auto& [word, road] : roads)
        if (tag == word) return road;
    return Road::None;
}

void Send(Halvern& halvern, std::vector<Packet> packets, Road roads)
{
    for (auto& packet : packets) {
        if (packet.source.empty()) packet.source = halvern.Engine.OwnCall;
        if (packet.dest.empty()) packet.dest = halvern.Engine.OwnDest;
        if (Includes(roads, Road::Radio)) SendByRadio(halvern, packet, roads);
    }
    if (Includes(roads, Road::Internet))
        for (const auto& packet : packets) SendToInternet(halvern, packet);
    if (!Includes(roads, Road::Psk63) || !halvern.ConMdiFrm.Psk63Soc.Connected()) return;
    std::vector<Psk63Packet> lines;
    for (auto& packet : packets) lines.push_back(AsPsk63(packet));
    SendByPsk63(halvern, lines);
}

void Send(Halvern& halvern, Packet packet, Road roads)
{
    std::vector<Packet> packets;
    packets.push_back(std::move(packet));
    Send(halvern, std::move(packets), roads);
}

void PassToInternet(Halvern& halvern, std::string_view line)
{
    halvern.ConMdiFrm.InternetSoc.Write(std::string(line).append(CrLf));
}

bool RadioOpen(const Halvern& halvern)
{
    return halvern.ConMdiFrm.PortTnc.Checked() || halvern.ConMdiFrm.SoundSoc.Connected();
}

} // namespace halvern
