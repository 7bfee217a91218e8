// SPDX-License-Identifier: GPL-3.0-or-later
#include "protocol/DecodeMicE.h"

#include "platform/Text.h"

namespace halvern {
namespace {

/// What a destination character means.
struct Meaning {
    std::string_view digits; ///< the digit, or a blank for ambiguity; empty: no such character
    char messageBit = '0';
    std::string_view latitudeSide;
    bool longitudeOffset = false;
    std::string_view longitudeSide;
    bool standardStatus = false;
};

/// One row a range of characters, the digit counted from the first of them.
struct MeaningRow {
    char first, last;
    std::string_view digits;
    Meaning meaning;
};

constexpr std::array<MeaningRow, 6> Meanings{{
    {'0', '9', "0123456789", {{}, '0', "S", false, "E", true}},
    {'A', 'J', "0123456789", {{}, '1', "C", false, "", false}},
    {'K', 'K', " ", {{}, '1', "C", false, "", false}},
    {'L', 'L', " ", {{}, '0', "S", false, "E", true}},
    {'P', 'Y', "0123456789", {{}, '1', "N", true, "W", true}},
    {'Z', 'Z', " ", {{}, '1', "N", true, "W", true}},
}};

/// The status texts: standard before the comma, custom behind it.
constexpr std::array<std::string_view, 8> Statuses{"Emergency,",         "Priority,Custom-6",  "Special,Custom-5",
                                                   "Committed,Custom-4", "Returning,Custom-3", "In Service,Custom-2",
                                                   "In Route,Custom-1",  "Off Duty,Custom-0"};

constexpr int Bias = 28; // added to every binary value to keep it a printable character

Meaning MeaningOf(char character)
{
    for (const auto& row : Meanings) {
        if (character < row.first || character > row.last) continue;
        auto meaning = row.meaning;
        meaning.digits = row.digits.substr(static_cast<std::size_t>(character - row.first), 1);
        return meaning;
    }
    return {};
}

/// The custom texts are told with as many characters as the standard text and its comma have, and one more: a short
/// custom text so shows the end of the standard one, by which operators tell it is custom.
std::string_view StatusText(std::size_t index, bool standard)
{
    const auto entry = Statuses[index];
    const auto comma = PositionOf(entry, ',');
    if (standard) return Columns(entry, 1, comma - 1);
    const auto count = comma + 1;
    return count >= entry.size() ? entry : entry.substr(entry.size() - count);
}

int ValueAt(std::string_view info, std::size_t column)
{
    return static_cast<unsigned char>(ColumnAt(info, column)) - Bias;
}

std::string Longitude(std::string_view info, const std::array<Meaning, 7>& c)
{
    int degrees = ValueAt(info, 2) + (c[5].longitudeOffset ? 100 : 0);
    if (degrees >= 180 && degrees <= 189)
        degrees -= 80;
    else if (degrees >= 190 && degrees <= 199)
        degrees -= 190;
    int minutes = ValueAt(info, 3);
    if (minutes >= 60) minutes -= 60;
    return ZeroFilled(degrees, 3) + ZeroFilled(minutes, 2) + "." + ZeroFilled(ValueAt(info, 4), 2) +
           std::string(c[6].longitudeSide);
}

/// Speed is rounded, not cut; the course is made of column 6 alone, its tens and units counted together. Both are what
/// operators know from this program's lists.
std::string CourseAndSpeed(std::string_view info)
{
    const int shared = ValueAt(info, 6);
    int speed = ValueAt(info, 5) * 10 + static_cast<int>(RoundHalfToEven(shared / 10.0));
    int course = shared % 10 + shared;
    if (speed >= 800) speed -= 800;
    if (course >= 400) course -= 400;
    return ZeroFilled(course, 3) + "/" + ZeroFilled(speed, 3);
}

} // namespace

void DecodeMicE(std::string_view destination, std::string& info, MicEFields& fields)
{
    std::array<Meaning, 7> c;
    bool good = info.size() >= 9 && destination.size() >= 6;
    for (std::size_t i = 1; good && i <= 6; ++i) {
        c[i] = MeaningOf(ColumnAt(destination, i));
        good = !c[i].digits.empty();
    }
    if (!good) {
        info = "PacketNoGood";
        return;
    }
    std::string digits;
    for (std::size_t i = 1; i <= 6; ++i) digits += c[i].digits;
    const auto bit = [&](std::size_t i) { return static_cast<std::size_t>(c[i].messageBit - '0'); };
    fields[1] = digits.substr(0, 4) + "." + digits.substr(4) + std::string(c[4].latitudeSide);
    fields[2] = ColumnAt(info, 9);
    fields[3] = Longitude(info, c);
    fields[4] = ColumnAt(info, 8);
    fields[5] = CourseAndSpeed(info);
    fields[6] = " " + std::string(StatusText(4 * bit(1) + 2 * bit(2) + bit(3), c[1].standardStatus));
}

} // namespace halvern
