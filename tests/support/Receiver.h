// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace halvern::test {

/// A second and more of a receiver's output with this sentence in it: at least 1000 bytes, from the middle of a line to
/// the middle of another.
inline std::string ReceiverBlock(const std::string& sentence)
{
    std::string block = "05,20,,,18*7A\r\n" + sentence + "\r\n";
    while (block.size() < 1000) block += "$GPGSV,3,1,11,10,63,137,17,07,61,098,15,05,59,290,20,08,54,157,30*70\r\n";
    return block + "$GPGSA,A,3,10,07";
}

} // namespace halvern::test
