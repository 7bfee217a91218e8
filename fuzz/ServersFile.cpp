// SPDX-License-Identifier: GPL-3.0-or-later
// The bytes of a list of servers: refused with the number of a line, or taken; what is written from there reads back
// the same.
#include <cstdint>
#include <cstdlib>

#include "config/IniText.h"
#include "config/Servers.h"

using namespace halvern;

namespace {

std::string Renewed(std::string_view bytes)
{
    Controls all;
    SetUpForm setUp(all);
    TakeServers(setUp, bytes);
    return ServersAsText(setUp);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string renewed;
    try {
        renewed = Renewed({reinterpret_cast<const char*>(data), size});
    } catch (const IniFault& fault) {
        if (fault.Line() < 1) std::abort();
        return 0;
    }
    renewed = Renewed(renewed); // names are trimmed now, and the chosen one is among them or gone
    if (Renewed(renewed) != renewed) std::abort();
    return 0;
}
