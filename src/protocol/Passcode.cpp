// SPDX-License-Identifier: GPL-3.0-or-later
#include "protocol/Passcode.h"

#include "platform/Text.h"

namespace halvern {

std::string APRSPasscode(std::string_view callSign)
{
    unsigned sum = 0x73E2;
    bool high = true;
    for (const char character : callSign) {
        const unsigned code = static_cast<unsigned char>(UpperCase(character));
        sum ^= high ? code << 8 : code;
        high = !high;
    }
    return std::to_string(sum % 0x8000);
}

} // namespace halvern
