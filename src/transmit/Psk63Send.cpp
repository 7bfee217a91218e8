// SPDX-License-Identifier: GPL-3.0-or-later
#include "transmit/Psk63Send.h"

#include "platform/Text.h"
#include "protocol/Psk63Framing.h"

namespace halvern {
bool Psk63SpeaksInMarks(const Halvern& halvern)
{
    return Trimmed(halvern.SetUpfrm.Psk63PortTxt.Text()) == "3122";
}

void SendByPsk63(Halvern& halvern, const std::vector<Psk63Packet>& packets)
{
    auto& socket = halvern.ConMdiFrm.Psk63Soc;
    if (!Psk63SpeaksInMarks(halvern)) {
        for (const auto& packet : packets) socket.Write(packet.line + std::string(CrLf));
        return;
    }
    if (halvern.Engine.Psk63Busy) return;
    halvern.Engine.Psk63Reply.clear();
    for (const auto& packet : packets) {
        const auto* const behind = &packet == &packets.back() ? "" : "\r";
        socket.Write(ForTransmitBuffer(BetweenMarkers(packet.text) + behind));
    }
    socket.Write(TransmitCommand);
}

} // namespace halvern
