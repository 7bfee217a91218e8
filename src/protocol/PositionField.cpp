// SPDX-License-Identifier: GPL-3.0-or-later
#include "protocol/PositionField.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/Text.h"

namespace halvern {
namespace {

/// A field of digits. The three spellings of a name are what operators know from the messages.
struct DigitField {
    std::string_view name;
    std::string_view inLengthRule;
    std::string_view inAdvice;
    std::size_t digits;
    int most;
};

constexpr std::array<DigitField, 6> DigitFields{{
    {"Degrees of Latitude", "Degrees of Latitude", "Degrees of Lattitude", 2, 90},
    {"Minutes of Latitude", "Minutes of Latitude", "Minutes of Lattitude", 2, 59},
    {"Decimal Minutes Of Latitude", "Decimal Minutes of Latitude", "Decimal Minutes of Lattitude", 2, 99},
    {"Degrees of Longitude", "Degrees of Longitude", "Degrees of Longitude", 3, 180},
    {"Minutes of Longitude", "Minutes of Longitude", "Minutes of Longitude", 2, 59},
    {"Decimal Minutes Of Longitude", "Decimal Minutes of Longitude", "Decimal Minutes of Longitude", 2, 99},
}};

std::string LengthRule(const DigitField& field)
{
    const bool two = field.digits == 2;
    std::string text(field.inLengthRule);
    text += two ? " must be two digits long. If your " : " must be three digits long. If your ";
    text += field.inAdvice;
    text += two ? " has one digit then please add a zero in the front of it."
                : " has two or less digits then please add a zero(s) in the front of it.";
    return text;
}

std::string DigitFieldFault(std::string_view text, const DigitField& field)
{
    const bool rightLength = field.digits == 2 ? text.size() == 2 : text.size() >= field.digits;
    if (!rightLength) return LengthRule(field);
    if (LeadingNumber(text) > field.most)
        return std::string(field.name) + " cannot be more than " + std::to_string(field.most) + ".";
    return {};
}

struct FieldNames {
    const char *whenEmpty, *name;
};

constexpr std::array<FieldNames, 8> PositionNames{{
    {"Degrees Of Latitude", "Degrees of Latitude"},
    {"Minutes Of Latitude", "Minutes of Latitude"},
    {"Decimal Minutes Of Latitude", "Decimal Minutes Of Latitude"},
    {"Hemisphere Of Latitude", "Hemisphere Of Latitude"},
    {"Degrees Of Longitude", "Degrees of Longitude"},
    {"Minutes Of Longitude", "Minutes of Longitude"},
    {"a Decimal Minutes Of Longitude", "Decimal Minutes Of Longitude"},
    {"Hemisphere Of Longitude", "Hemisphere Of Longitude"},
}};

/// Four texts of an angle, hundredths of a minute counted whole so that 59.995 minutes make a degree.
void PutAngle(std::string* texts, double angle, int digits, const char* hemispheres)
{
    const long hundredths = RoundHalfToEven(std::abs(angle) * 6000);
    texts[0] = ZeroFilled(hundredths / 6000, digits);
    texts[1] = ZeroFilled(hundredths / 100 % 60, 2);
    texts[2] = ZeroFilled(hundredths % 100, 2);
    texts[3] = hemispheres[angle < 0 ? 1 : 0];
}

} // namespace

std::string PositionFieldFault(std::string_view text, std::string_view name)
{
    if (name == "Hemisphere Of Latitude")
        return text == "N" || text == "S" ? "" : "Hemisphere Of Latitude must be expressed as a 'N' or 'S'";
    if (name == "Hemisphere Of Longitude")
        return text == "E" || text == "W" ? "" : "Hemisphere Of Longitude must be expressed as a 'W' or 'E'";
    if (!std::all_of(text.begin(), text.end(), IsDigit)) return std::string(name) + " must be expressed in numbers.";
    for (const auto& field : DigitFields)
        if (field.name == name) return DigitFieldFault(text, field);
    return {};
}

std::string PositionFault(const PositionTexts& texts, std::string_view ending)
{
    const auto part = FaultyPart(texts);
    if (!part) return {};
    const auto& names = PositionNames[*part];
    if (texts[*part].empty()) return std::string("You have to enter ") + names.whenEmpty + std::string(ending);
    return PositionFieldFault(texts[*part], names.name);
}

std::optional<std::size_t> FaultyPart(const PositionTexts& texts)
{
    for (std::size_t i = 0; i < texts.size(); ++i)
        if (texts[i].empty() || !PositionFieldFault(texts[i], PositionNames[i].name).empty()) return i;
    return {};
}

PositionTexts PositionTextsOf(double latitude, double longitude)
{
    PositionTexts texts;
    PutAngle(texts.data(), std::clamp(latitude, -90.0, 90.0), 2, "NS");
    PutAngle(texts.data() + 4, std::remainder(longitude, 360.0), 3, "WE");
    return texts;
}

} // namespace halvern
