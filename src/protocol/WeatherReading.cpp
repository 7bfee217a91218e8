// SPDX-License-Identifier: GPL-3.0-or-later
#include "protocol/WeatherReading.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

#include "platform/Text.h"
#include "state/Rows.h"

namespace halvern {
namespace {

using Kind = WeatherReading::Kind;

/// Where a form has a number, and what it is worth.
struct Field {
    ColumnRange columns{}; ///< of the field; from the mark on where it has one
    char mark = 0;         ///< the letter in front of the number, whose first place counts
    bool hexadecimal = false;
    double factor = 1;
    double offset = 0;
    bool isSigned = false; ///< of 16 bits
    bool Given() const { return columns.count > 0; }
};

struct WeatherForm {
    bool (*fits)(std::string_view info);
    Field temperature, barometer;
    ColumnRange tested{}; ///< of the wind's direction: these columns must be digits, the last ones of them are read
    Field direction, speed;
    bool byCompassTable = false; ///< the direction is an index into the table
    Field gust{}, humidity{}, rain{};
};

constexpr double MilesAKilometre = 0.62137;
constexpr double PeetFreezing = -56; ///< what a temperature of 00 means

Field Hex(ColumnRange columns, double factor = 1)
{
    return {.columns = columns, .hexadecimal = true, .factor = factor};
}

Field SignedTenths(ColumnRange columns)
{
    return {.columns = columns, .hexadecimal = true, .factor = 0.1, .isSigned = true};
}

Field Digits(ColumnRange columns)
{
    return {.columns = columns};
}

Field Behind(char mark, std::size_t count, double factor = 1)
{
    return {.columns = {1, count}, .mark = mark, .factor = factor};
}

WeatherForm PeetPacket(bool (*fits)(std::string_view), double speedFactor)
{
    Field temperature = Hex(peetRow::Temperature);
    temperature.offset = PeetFreezing;
    return {fits,
            temperature,
            {},
            peetRow::WindDirection,
            Hex(peetRow::WindDirection),
            Hex(peetRow::WindSpeed, speedFactor),
            true};
}

/// A record whose columns are those of a data record, further to the left by `shift`.
WeatherForm UltimeterForm(bool (*fits)(std::string_view), std::size_t shift)
{
    const auto at = [shift](ColumnRange range) { return ColumnRange{range.first - shift, range.count}; };
    const auto direction = at(ultimeterRow::WindDirection);
    return {fits,
            SignedTenths(at(ultimeterRow::Temperature)),
            Hex(at(ultimeterRow::Barometer), 0.1),
            {direction.first - 2, direction.count + 2},
            Hex(direction),
            Hex(at(ultimeterRow::WindPeak), 0.1 * MilesAKilometre)};
}

/// What the forms of letters and digits have besides.
WeatherForm WithLetters(WeatherForm form)
{
    form.gust = Behind('g', 3);
    form.humidity = Behind('h', 2);
    form.rain = Behind('r', 3, 0.01);
    return form;
}

WeatherForm PositionForm(bool (*fits)(std::string_view), std::size_t code, double barometerFactor)
{
    const ColumnRange direction{code + 1, 3}, speed{code + 5, 3};
    return WithLetters(
        {fits, Behind('t', 3), Behind('b', 5, barometerFactor), direction, Digits(direction), Digits(speed)});
}

/// In the order in which they are tried. A stamped report's barometer is shown as the raw number that it is.
const std::array<WeatherForm, 7> Forms{{
    PeetPacket([](std::string_view info) { return info.starts_with("*"); }, 1),
    PeetPacket([](std::string_view info) { return info.starts_with("#"); }, MilesAKilometre),
    UltimeterForm([](std::string_view info) { return info.starts_with("!!"); }, 3),
    UltimeterForm([](std::string_view info) { return info.starts_with("$ULTW"); }, 0),
    WithLetters({[](std::string_view info) { return info.starts_with("_"); },
                 Behind('t', 3),
                 Behind('b', 5, 0.01),
                 {},
                 Behind('c', 3),
                 Behind('s', 3)}),
    PositionForm([](std::string_view info) { return ColumnAt(info, weatherRow::Code) == '_'; }, weatherRow::Code, 0.01),
    PositionForm([](std::string_view info) { return ColumnAt(info, weatherRow::StampedCode) == '_'; },
                 weatherRow::StampedCode, 1),
}};

struct CompassPoint {
    std::int16_t gauge, degrees;
};

/// The sixteen points as Peet packets count them. The gauge's 0 is its left end.
constexpr std::array<CompassPoint, 16> Compass{{{90, 0},
                                                {115, 23},
                                                {137, 45},
                                                {160, 68},
                                                {180, 90},
                                                {205, 113},
                                                {227, 135},
                                                {250, 158},
                                                {270, 180},
                                                {295, 203},
                                                {317, 225},
                                                {340, 248},
                                                {0, 270},
                                                {21, 293},
                                                {43, 315},
                                                {65, 338}}};

bool AllDigits(std::string_view text, bool hexadecimal)
{
    return std::ranges::all_of(
        text, [&](char digit) { return IsDigit(digit) || (hexadecimal && digit >= 'A' && digit <= 'F'); });
}

std::string_view TextOf(std::string_view info, const Field& field)
{
    if (field.mark == 0) return field.columns(info);
    return Columns(info, PositionOf(info, field.mark) + 1, field.columns.count);
}

/// @return nothing where other characters than digits stand there, or too few
std::optional<double> Read(std::string_view info, const Field& field)
{
    const auto text = TextOf(info, field);
    if (text.size() != field.columns.count || !AllDigits(text, field.hexadecimal)) return {};
    int number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number, field.hexadecimal ? 16 : 10);
    if (field.isSigned) number = static_cast<std::int16_t>(number);
    return number * field.factor + field.offset;
}

WeatherReading ReadWind(std::string_view info, const WeatherForm& form)
{
    const auto direction = Read(info, form.direction), speed = Read(info, form.speed);
    if (!direction || !speed || !AllDigits(form.tested(info), form.direction.hexadecimal)) return {Kind::Malformed};
    WeatherReading wind{Kind::Good, static_cast<float>(*speed)};
    if (form.byCompassTable) {
        const auto& point = ElementOf(Compass, *direction);
        wind.gauge = point.gauge;
        wind.direction = point.degrees;
    } else {
        constexpr std::int16_t north = 92, circle = 360; // a little past a quarter turn: there the rose has its north
        wind.direction = static_cast<std::int16_t>(*direction);
        wind.gauge = static_cast<std::int16_t>(wind.direction + north);
        if (wind.gauge > circle) wind.gauge = static_cast<std::int16_t>(wind.gauge - circle);
    }
    return wind;
}

} // namespace

bool LooksLikeWeather(std::string_view info)
{
    constexpr std::string_view firsts = "*#!$_";
    return (!info.empty() && firsts.find(info.front()) != std::string_view::npos) ||
           ColumnAt(info, weatherRow::Code) == '_' || ColumnAt(info, weatherRow::StampedCode) == '_';
}

WeatherReading ReadWeather(std::string_view info, WeatherQuantity quantity)
{
    const auto form = std::ranges::find_if(Forms, [&](const WeatherForm& each) { return each.fits(info); });
    if (form == Forms.end()) return {};
    if (quantity == WeatherQuantity::Wind) return ReadWind(info, *form);
    const Field&
        field = *std::array{&form->temperature, &form->barometer, &form->direction,
                            &form->gust,        &form->humidity,  &form->rain}[static_cast<std::size_t>(quantity)];
    if (!field.Given()) return {Kind::Missing};
    const auto value = Read(info, field);
    return value ? WeatherReading{Kind::Good, static_cast<float>(*value)} : WeatherReading{Kind::Malformed};
}

} // namespace halvern
