// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace halvern {

/// What stands in front of the information field.
struct PacketHeader {
    std::string_view source; ///< 3 to 9 characters
    std::string_view dest;   ///< at least 2; keeps the header's ":" where the packet has no path
    std::string_view path;   ///< empty where the packet has no path
};

/// Reads "SOURCE>DEST,PATH:". The views are into `header`.
///
/// @param header  everything up to and with the first ":"
/// @return nothing for a header that is not well formed
std::optional<PacketHeader> ReadPacketHeader(std::string_view header);

/// "SOURCE>DEST,PATH:INFO", the comma and the path left out where the path is empty.
std::string PacketLine(std::string_view source, std::string_view dest, std::string_view path, std::string_view info);

} // namespace halvern
