// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/Kiss.h"

#include <utility>

#include "engine/ProcessPacket.h"
#include "protocol/Ax25.h"
#include "protocol/KissFraming.h"
#include "relay/Digipeater.h"
#include "relay/Igate.h"

namespace halvern {

std::string KissFrameToText(Halvern& halvern, std::string frame)
{
    auto read = ReadFrame(std::move(frame));
    if (!read) return "NG";
    if (!read->path.empty()) Digipeat(halvern, *read);
    return TextOf(std::move(*read));
}

void ReceiveKissBytes(Halvern& halvern, std::string& buffer, std::string_view bytes, std::string_view tag)
{
    buffer += bytes;
    auto frame = TakeKissFrame(buffer); // first of all: a message on the way lets the next bytes come in
    if (!frame) return;
    auto line = KissFrameToText(halvern, std::move(*frame));
    if (line == "NG") return;
    ProcessPacket(halvern, line, tag);
    if (halvern.Engine.IgateOn) RfGateStep(halvern, line);
}

} // namespace halvern
