// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace halvern {

/// Degrees of a latitude text DDMM.hhN, north positive; blanks count as "0". 0 on any failure, so the equator itself
/// is no position here. Source: APRS protocol reference, chapter 6.
double LatTextToDegrees(std::string_view text);

/// Degrees of a longitude text DDDMM.hhE, west positive; 0 on any failure.
double LonTextToDegrees(std::string_view text);

} // namespace halvern
