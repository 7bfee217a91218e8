// SPDX-License-Identifier: GPL-3.0-or-later
#include "protocol/PositionText.h"

#include <string>

#include "platform/Text.h"

namespace halvern {
namespace {

/// @param places  digits of the degrees: 2 for a latitude, 3 for a longitude
double Degrees(std::string_view text, std::size_t places, int most, char positive, char negative)
{
    const std::size_t point = places + 3;
    std::string digits(Columns(text, 1, places + 5));
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (digits[i] == ' ') digits[i] = '0';
        const bool mayBePoint = digits[i] == '.' && i + 1 == point;
        if (!IsDigit(digits[i]) && !mayBePoint) return 0;
    }
    const char hemisphere = text.empty() ? '\0' : UpperCase(text.back());
    if (hemisphere != positive && hemisphere != negative) return 0;
    const double degrees = LeadingNumber(Columns(digits, 1, places));
    const double minutes = LeadingNumber(Columns(digits, places + 1));
    if (degrees > most || minutes > 59.99) return 0;
    const double value = degrees + minutes / 60;
    return hemisphere == negative ? -value : value;
}

} // namespace

double LatTextToDegrees(std::string_view text)
{
    return Degrees(text, 2, 90, 'N', 'S');
}

double LonTextToDegrees(std::string_view text)
{
    return Degrees(text, 3, 180, 'W', 'E');
}

} // namespace halvern
