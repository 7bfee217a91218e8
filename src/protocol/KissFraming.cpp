// SPDX-License-Identifier: GPL-3.0-or-later
#include "protocol/KissFraming.h"

#include <algorithm>

#include "platform/EndMark.h"
#include "platform/Text.h"

namespace halvern {
namespace {

/// Both FENDs included.
constexpr std::size_t LongestFrame = KissFrames.longest + 1;

} // namespace

std::optional<std::string> TakeKissFrame(std::string& buffer)
{
    const auto end = PositionOf(buffer, FrameEnd, 2);
    if (end == 0) buffer.resize(std::min(buffer.size(), LongestFrame + 1)); // too long already, whatever follows
    if (end == 2) buffer.erase(0, 1);
    if (end <= 2) return {};
    std::string frame(Columns(buffer, 3, end - 3));
    buffer.erase(0, end);
    if (end > LongestFrame) return {};
    if (frame.ends_with('\r')) frame.pop_back();
    return frame;
}

} // namespace halvern
