// SPDX-License-Identifier: GPL-3.0-or-later
// The bytes of a list of maps: every step of the ladder is asked for, and a few that it does not have. A name is
// always one that stands in the list, and never leads out of a folder.
#include <cstdint>
#include <cstdlib>

#include "map/DosMapFile.h"

using namespace halvern;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view list(reinterpret_cast<const char*>(data), size);
    for (int row = -1; row <= 14; ++row) {
        const auto name = NearestMap(list, row, 40.8F, 73.1F);
        if (name.size() > 8 || name.find_first_of("\\/") != std::string::npos ||
            list.find(name) == std::string_view::npos)
            std::abort();
    }
    return 0;
}
