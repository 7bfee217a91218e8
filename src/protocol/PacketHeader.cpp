// SPDX-License-Identifier: GPL-3.0-or-later
#include "protocol/PacketHeader.h"

#include "platform/Text.h"

namespace halvern {
namespace {

/// A path of several elements: each but the last has at least 3 characters, the last at least 2. A single element may
/// be of any length.
bool PathIsGood(std::string_view path)
{
    if (path.find(',') == std::string_view::npos) return true;
    for (std::size_t comma; (comma = path.find(',')) != std::string_view::npos; path.remove_prefix(comma + 1))
        if (comma < 3) return false;
    return path.size() >= 2;
}

} // namespace

std::optional<PacketHeader> ReadPacketHeader(std::string_view header)
{
    const auto arrow = PositionOf(header, '>');
    if (arrow < 4 || arrow > 10) return {};
    PacketHeader parts{.source = Columns(header, 1, arrow - 1), .dest = {}, .path = {}};
    const auto comma = PositionOf(header, ',', arrow);
    if (comma == 0) {
        parts.dest = Columns(header, arrow + 1);
    } else {
        if (comma + 1 == header.size()) return {};
        parts.dest = Columns(header, arrow + 1, comma - arrow - 1);
        parts.path = Columns(header, comma + 1, header.size() - comma - 1);
        if (!PathIsGood(parts.path)) return {};
    }
    if (parts.dest.size() < 2) return {};
    return parts;
}

std::string PacketLine(std::string_view source, std::string_view dest, std::string_view path, std::string_view info)
{
    std::string line(source);
    line.append(">").append(dest);
    if (!path.empty()) line.append(",").append(path);
    return line.append(":").append(info);
}

} // namespace halvern
