// SPDX-License-Identifier: GPL-3.0-or-later
// Text lines through ProcessPacket, as they would come from the air. The station lives as long as the process, so that
// lines meet what the ones before have left; every line of an input is one packet.
#include <cstdint>

#include "LivingStation.h"
#include "engine/ProcessPacket.h"
#include "engine/ResetStores.h"

using namespace halvern;

namespace {

constexpr const char* Tags[] = {"TNC", "SOUND", "PSK63", "TCPIP", "IMPORT"};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    auto& halvern = LivingStation().halvern;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    std::size_t count = size;
    for (const auto line : LinesOf(text)) {
        std::string packet(line);
        halvern.Engine.ReviewMode = count % 7 == 0;
        ProcessPacket(halvern, packet, Tags[count++ % 5]);
    }
    CheckInvariants(halvern);
    if (halvern.PositionFrm.PosLst.Count() > 200) ResetStores(halvern, "Clear");
    return 0;
}
