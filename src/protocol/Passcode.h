// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace halvern {

/// The number that an APRS-IS server wants to see before it believes a call: a public hash of the call without its
/// SSID, 0 to 32767, in decimal.
std::string APRSPasscode(std::string_view callSign);

} // namespace halvern
