// SPDX-License-Identifier: GPL-3.0-or-later
#include "transmit/Psk63Send.h"

#include "platform/Text.h"

namespace halvern {
namespace {

constexpr char CharacterFollows = 25;
constexpr std::string_view TransmitCommand = "\x1ATX\x1B";
constexpr std::string_view StartMarker = "SSSSS";
constexpr std::string_view EndMarker = "EEEEE";

std::string CharacterByCharacter(std::string_view text)
{
    std::string bytes;
    for (const char character : text) bytes += {CharacterFollows, character};
    return bytes;
}

} // namespace

bool Psk63SpeaksInMarks(const Halvern& halvern)
{
    return halvern.SetUpfrm.Psk63PortTxt.Text() == "3122";
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
        socket.Write(CharacterByCharacter(std::string(StartMarker) + packet.text + std::string(EndMarker) + behind));
    }
    socket.Write(TransmitCommand);
}

} // namespace halvern
