// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/EndMark.h"

#include <algorithm>
#include <utility>

namespace halvern {

void EndMarkCutter::Take(std::string_view bytes)
{
    while (!bytes.empty()) {
        const auto found = mark ? bytes.find(*mark) : bytes.size() - 1;
        const auto room = LongestPiece - piece.size();
        const auto count = std::min({found == std::string_view::npos ? bytes.size() : found + 1, bytes.size(), room});
        piece += bytes.substr(0, count);
        bytes.remove_prefix(count);
        const bool ended = found != std::string_view::npos && count == found + 1;
        if (ended || piece.size() >= LongestPiece) Flush();
    }
}

void EndMarkCutter::Flush()
{
    if (piece.empty()) return;
    const std::string whole = std::exchange(piece, {}); // the receiver may close the port, which drops the piece
    deliver(whole);
}

} // namespace halvern
