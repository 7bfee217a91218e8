// SPDX-License-Identifier: GPL-3.0-or-later
#include "protocol/KissFraming.h"

#include "platform/EndMark.h"
#include "platform/Text.h"

namespace halvern {

std::optional<std::string> TakeKissFrame(std::string& buffer)
{
    const auto end = PositionOf(buffer, FrameEnd, 2);
    if (end == 0) return {};
    if (end == 2) {
        buffer.erase(0, 1);
        return {};
    }
    std::string frame(Columns(buffer, 3, end - 3));
    buffer.erase(0, end);
    if (frame.ends_with('\r')) frame.pop_back();
    return frame;
}

} // namespace halvern
