// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/EndMark.h"

#include <algorithm>

namespace halvern {

void EndMarkCutter::Take(std::string_view bytes)
{
    arrived.erase(0, std::exchange(at, 0));
    arrived += bytes;
}

std::optional<std::string> EndMarkCutter::Next()
{
    if (framing.lead) return NextLed();
    if (!framing.mark && at < arrived.size()) return arrived.substr(std::exchange(at, arrived.size()));
    while (at < arrived.size()) {
        if (piece.empty() && !tooLong) at = std::min(arrived.find_first_not_of(*framing.mark, at), arrived.size());
        const auto found = arrived.find(*framing.mark, at);
        const auto end = found == std::string::npos ? arrived.size() : found + 1;
        tooLong = tooLong || piece.size() + (end - at) > framing.longest;
        if (!tooLong) piece.append(arrived, at, end - at);
        at = end;
        if (found == std::string::npos) break;
        auto whole = Rest();
        if (std::exchange(tooLong, false)) continue;
        if (framing.opens) whole.insert(whole.begin(), *framing.mark);
        return whole;
    }
    return {};
}

std::optional<std::string> EndMarkCutter::NextLed()
{
    if (at == arrived.size()) return {};
    const std::size_t length = arrived[at] == *framing.lead ? 2 : 1;
    if (at + length > arrived.size()) return {};
    return arrived.substr(std::exchange(at, at + length), length);
}

} // namespace halvern
