// SPDX-License-Identifier: GPL-3.0-or-later
#include "view/Phg.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "platform/Text.h"
#include "protocol/PositionText.h"
#include "state/Rows.h"
#include "view/MobileSymbol.h"

namespace halvern {
namespace {

constexpr double Radian = 3.14159 / 180;
constexpr std::string_view UsualCode = "5130";  ///< of a fixed station that sends none
constexpr std::string_view MobileCode = "3020"; ///< of everything that moves, and of objects
constexpr double DegreesPerUnit = 0.015625 * 2;

/// The four digits that count for a row.
std::string_view CodeOf(std::string_view row)
{
    if (ColumnAt(row, positionRow::Type) == ';' || IsMobile(ColumnAt(row, positionRow::Code))) return MobileCode;
    const auto sent = SentPhg(row);
    return sent.empty() ? UsualCode : sent;
}

bool PassesFilter(const EngineState& engine, std::string_view row)
{
    if (!engine.JustSymbolsOn || ColumnAt(row, positionRow::Type) == ';') return true;
    const char table = ColumnAt(row, positionRow::Table), code = ColumnAt(row, positionRow::Code);
    for (std::size_t i = 1; i <= std::min(engine.JustTable.size(), engine.JustCode.size()); ++i)
        if (ColumnAt(engine.JustTable, i) == table && ColumnAt(engine.JustCode, i) == code) return true;
    return false;
}

/// Reach of a station; half of it for a mobile one.
double RadiusOf(const Phg& phg, int mode)
{
    return std::sqrt(2 * phg.height * std::sqrt((phg.power / 10) * (phg.gain / 2))) / (mode == 0 ? 2 : 4);
}

struct Centre {
    double latitude = 0, longitude = 0;
};

/// How far the beam of a direction pushes the circle, as multiples of the sine and the cosine of the direction.
struct Push {
    double direction;
    double latitudeBySine, latitudeByCosine, longitudeBySine, longitudeByCosine;
};

/// The circles of some directions stand on the other side of their station. Operators read them that way.
constexpr Push Pushes[] = {
    {0, 0, 0, 0, 0},    {45, 0, 1, -1, 0},  {90, 0, 0, -1, 0},  {135, -1, 0, 0, 1}, {180, 0, 1, 0, 0},
    {225, 1, 0, 0, -1}, {270, 0, 0, -1, 0}, {315, -1, 0, 0, 1}, {360, 0, 1, 0, 0},
};

/// Moves the centre to a station's circle. A direction that the table does not have leaves it at the one before.
void MoveCentre(Centre& centre, const Centre& station, double direction, double reach)
{
    const double sine = std::sin(direction * Radian) * reach, cosine = std::cos(direction * Radian) * reach;
    for (const auto& push : Pushes)
        if (push.direction == direction)
            centre = {station.latitude + push.latitudeBySine * sine + push.latitudeByCosine * cosine,
                      station.longitude + push.longitudeBySine * sine + push.longitudeByCosine * cosine};
}

} // namespace

std::string_view SentPhg(std::string_view row)
{
    const auto comment = positionRow::Comment(row), code = Columns(comment, 4, 4);
    const bool sent = comment.starts_with("PHG") && code.size() == 4 && std::all_of(code.begin(), code.end(), IsDigit);
    return sent ? code : std::string_view{};
}

Phg ReadPhg(const List& directions, std::string_view digits)
{
    const auto digit = [&](std::size_t place) { return digits[place] - '0'; };
    return {.power = static_cast<double>(digit(0) * digit(0)),
            .height = 10 * std::pow(2, digit(1)),
            .gain = std::pow(10, digit(2) / 10.0),
            .direction = digit(3) < directions.Count() ? LeadingNumber(directions.Row(digit(3))) : 0};
}

void PlotPhg(Halvern& halvern, int mode, int start)
{
    const auto& stations = halvern.PositionFrm.PosLst;
    const double range = halvern.Map.MapRange;
    Centre centre;
    for (int i = start; i < stations.Count(); ++i) {
        const std::string_view row = stations.Row(i);
        if (ColumnAt(row, positionRow::State) == mark::Killed) continue;
        const auto phg = ReadPhg(halvern.SetUpfrm.PhgDirLst, CodeOf(row));
        const double radius = RadiusOf(phg, mode);
        MoveCentre(centre,
                   {LatTextToDegrees(positionRow::Latitude(row)), LonTextToDegrees(positionRow::Longitude(row))},
                   phg.direction, radius / range);
        if (PassesFilter(halvern.Engine, row))
            halvern.MapFrm.Map1.Circle(centre.longitude, centre.latitude, radius * DegreesPerUnit, colour::BrightWhite);
    }
}

void TogglePhg(Halvern& halvern, MenuItem& item, int mode)
{
    item.SetChecked(!item.Checked());
    if (item.Checked()) PlotPhg(halvern, mode, 0);
}

} // namespace halvern
