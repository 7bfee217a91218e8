// SPDX-License-Identifier: GPL-3.0-or-later
#include "protocol/ThirdParty.h"

#include "platform/Text.h"
#include "protocol/PacketHeader.h"

namespace halvern {

std::string ThirdPartyField(std::string_view source, std::string_view dest, std::string_view gate,
                            std::string_view info)
{
    std::string path("TCPIP,");
    path.append(gate).append("*");
    return "}" + PacketLine(source, dest, path, info);
}

std::string_view CarriedPacket(std::string_view line)
{
    const auto mark = PositionOf(line, ":}");
    return mark == 0 ? std::string_view{} : Columns(line, mark + 2);
}

std::string_view MessageOf(std::string_view line)
{
    const auto colon = PositionOf(line, ':');
    return colon == 0 ? std::string_view{} : Columns(line, colon + 2);
}

} // namespace halvern
