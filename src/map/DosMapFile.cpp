// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/DosMapFile.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "map/InputItems.h"
#include "platform/Text.h"

namespace halvern {
namespace {

/// The head of a map, and what of it the points need.
struct Head {
    float originLat = 0, originLon = 0;
    std::int32_t scale = 0;
};

Success ReadHead(Items& items, Head& head, std::string& format)
{
    const auto line = [&](auto& place) {
        const bool good = items.Number(place);
        items.SkipLine();
        return good;
    };
    float unusedSpan = 0;
    std::int16_t unusedCount = 0;
    std::string_view word;
    if (!line(head.originLat) || !line(head.originLon) || !line(head.scale) || !line(unusedSpan) || !line(unusedSpan) ||
        !line(unusedCount) || !line(unusedCount) || !items.Next(word))
        return false;
    format = word;
    return true;
}

/// Turns offsets into degrees and gives them out.
class Pen {
public:
    Pen(const Head& head, MapLines& lines)
        : originLat(head.originLat), originLon(head.originLon), scale(head.scale), lines(lines)
    {
    }
    void Lift(int nextColour)
    {
        colour = nextColour;
        lifted = true;
    }
    Success Point(double a, double b)
    {
        if (scale == 0 || colour < 0 || colour > 15) return false;
        const double x = originLon - a / scale, y = originLat - b / scale;
        if (lifted)
            lines.Start(x, y, colour);
        else
            lines.LineTo(x, y, colour);
        lifted = false;
        return true;
    }

private:
    const double originLat, originLon, scale;
    MapLines& lines;
    int colour = 0;
    bool lifted = true;
};

/// An offset: nearly always a few digits.
Success Offset(std::string_view item, std::int32_t& offset)
{
    offset = 0;
    if (item.empty() || item.size() > 9) return FitInto(offset, ItemNumber(item));
    for (const char character : item) {
        if (!IsDigit(character)) return FitInto(offset, ItemNumber(item));
        offset = offset * 10 + (character - '0');
    }
    return true;
}

Success ReadPairs(Items& items, Pen& pen)
{
    std::string_view first, second;
    std::int32_t a = 0, b = 0;
    // A body that doesn't begin with a polyline or the end has no shape to hold on to.
    for (bool begun = false;; begun = true) {
        if (!items.Next(first) || !items.Next(second)) return false;
        const bool firstIsZero = first == "0", secondIsZero = second == "0";
        if (firstIsZero && second == "-1") return true;
        if (firstIsZero && secondIsZero) {
            std::int16_t colour = 0;
            if (!items.Number(colour)) return false;
            items.SkipLine();
            pen.Lift(colour);
        } else if (!begun) {
            return false;
        } else if (!firstIsZero && !secondIsZero) {
            if (!Offset(first, a) || !Offset(second, b) || !pen.Point(a, b)) return false;
        }
    }
}

/// A point in three characters: the high parts of both offsets, then the low bits of both.
Success PackedPoint(std::string_view group, Pen& pen)
{
    const auto value = [](char character) { return static_cast<unsigned char>(character) - 27; };
    const int low = value(group.back());
    const int upper = low >> 3; // rounds down, also below 0
    const int a = value(group[0]) * 16 + upper;
    const int b = value(group[group.size() > 1 ? 1 : 0]) * 8 + (low - upper * 8);
    return pen.Point(a, b);
}

Success ReadPackedLines(Items& items, Pen& pen)
{
    for (;;) {
        std::int16_t colour = 0;
        std::string_view line;
        if (!items.Number(colour)) return false;
        if (colour == -1) return true;
        if (!items.RestOfLine(line)) return false;
        pen.Lift(colour);
        for (; !line.empty(); line.remove_prefix(std::min<std::size_t>(3, line.size())))
            if (!PackedPoint(line.substr(0, 3), pen)) return false;
    }
}

// --- the list of maps ------------------------------------------------------------------------------------------------

constexpr std::size_t RecordLength = 23;

/// A record by its number, from 1.
std::string_view Record(std::string_view list, std::size_t number)
{
    return Columns(list, (number - 1) * RecordLength + 1, RecordLength);
}

/// Degrees and four decimals; negative on the other side.
float Angle(std::string_view degrees, std::string_view decimals, char side, char negativeSide)
{
    const auto angle = static_cast<float>(LeadingNumber(degrees) + LeadingNumber("." + std::string(decimals)));
    return side == negativeSide ? -angle : angle;
}

float Distance(std::string_view entry, float latitude, float longitude)
{
    const float dLat =
        std::abs(latitude - Angle(Columns(entry, 9, 2), Columns(entry, 11, 4), ColumnAt(entry, 15), 'S'));
    const float dLon =
        std::abs(longitude - Angle(Columns(entry, 16, 3), Columns(entry, 19, 4), ColumnAt(entry, 23), 'E'));
    return std::sqrt(dLat * dLat + dLon * dLon);
}

} // namespace

MapFileEnd ReadMapLines(std::string_view bytes, MapLines& lines, std::string& format)
{
    Items items(bytes);
    Head head;
    if (!ReadHead(items, head, format)) return MapFileEnd::Damaged;
    Pen pen(head, lines);
    if (format == "ASCII") return ReadPairs(items, pen) ? MapFileEnd::Marker : MapFileEnd::Damaged;
    if (format == "LineFormat") return ReadPackedLines(items, pen) ? MapFileEnd::Marker : MapFileEnd::Damaged;
    return MapFileEnd::UnknownFormat;
}

std::string NearestMap(std::string_view list, int row, float latitude, float longitude)
{
    constexpr int heads = 12;
    if (row < 1 || row > heads) return {};
    const auto head = Record(list, row);
    const double start = LeadingNumber(Columns(head, 1, 13)), count = LeadingNumber(Columns(head, 14, 10));
    const auto records = static_cast<double>(list.size() / RecordLength);
    if (!(start >= 1 && count >= 1 && start + count - 1 <= records)) return {};
    const auto first = static_cast<std::size_t>(start), end = first + static_cast<std::size_t>(count);
    auto nearest = Record(list, first);
    float least = Distance(nearest, latitude, longitude);
    for (std::size_t number = first + 1; number < end; ++number) {
        const float distance = Distance(Record(list, number), latitude, longitude);
        if (!(distance < least)) continue;
        least = distance;
        nearest = Record(list, number);
    }
    const auto name = TrimmedRight(Columns(nearest, 1, 8));
    return name.find_first_of("\\/") == std::string_view::npos ? std::string(name) : std::string();
}

} // namespace halvern
