// SPDX-License-Identifier: GPL-3.0-or-later
#include "protocol/SplitSentence.h"

#include "platform/Text.h"

namespace halvern {
namespace {

/// A number text as three digits, halves rounded to the even neighbour. @return false past 999.
bool MakeThreeDigits(std::string& field)
{
    auto digits = std::to_string(RoundHalfToEven(LeadingNumber(field)));
    if (digits.size() > 3) return false;
    field = std::string(3 - digits.size(), '0') + digits;
    return true;
}

bool Split(std::string_view sentence, std::vector<std::string>& fields, int wanted)
{
    const auto star = sentence.find('*');
    if (star == std::string_view::npos || !Holds(sentence, ",")) return false;
    std::string text(sentence);
    text[star] = ',';
    std::string_view rest = text;
    fields.assign(1, "");
    for (int field = 1; field <= wanted; ++field) {
        const auto comma = rest.find(',');
        if (comma == std::string_view::npos) return false;
        fields.emplace_back(rest.substr(0, comma));
        rest.remove_prefix(comma + 1);
    }
    if (wanted < 1 || fields[1] != "$GPRMC") return true;
    for (int field = 8; field <= 9 && field <= wanted; ++field)
        if (!MakeThreeDigits(fields[field])) return false;
    return true;
}

} // namespace

void SplitSentence(std::string_view sentence, std::vector<std::string>& fields, std::int16_t& count)
{
    if (!Split(sentence, fields, count)) count = -1;
}

} // namespace halvern
