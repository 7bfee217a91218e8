// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/DosMapFile.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

#include "platform/Text.h"

namespace halvern {
namespace {

/// A step of a reader that may fail. Readers stop at the first one that does.
using Success = bool;

std::string_view WithoutBlanks(std::string_view item)
{
    const auto blank = [](char character) { return character == ' ' || character == '\t'; };
    while (!item.empty() && blank(item.front())) item.remove_prefix(1);
    while (!item.empty() && blank(item.back())) item.remove_suffix(1);
    return item;
}

/// The number that a whole item is. @return nothing for another text or a number without bounds.
std::optional<double> WholeNumber(std::string_view item)
{
    if (!item.empty() && item.front() == '+') item.remove_prefix(1);
    double number = 0;
    const auto [end, error] = std::from_chars(item.data(), item.data() + item.size(), number);
    if (error != std::errc{} || end != item.data() + item.size() || !std::isfinite(number)) return {};
    return number;
}

/// Rounds a number to a whole one that the kind can hold.
template <class Kind> Success FitInto(Kind& place, std::optional<double> number)
{
    if (!number) return false;
    const double whole = std::nearbyint(*number);
    if (whole < std::numeric_limits<Kind>::min() || whole > std::numeric_limits<Kind>::max()) return false;
    place = static_cast<Kind>(whole);
    return true;
}

Success FitInto(float& place, std::optional<double> number)
{
    if (!number || std::abs(*number) > std::numeric_limits<float>::max()) return false;
    place = static_cast<float>(*number);
    return true;
}

/// Walks over the items and lines of a text.
class Items {
public:
    explicit Items(std::string_view bytes) : at(bytes.data()), end(bytes.data() + bytes.size()) {}

    /// The next item. Its comma or line end is passed.
    Success Next(std::string_view& item)
    {
        if (at == end) return false;
        const char* const start = at;
        while (at != end && *at != ',' && *at != '\n' && *at != '\r') ++at;
        item = {start, static_cast<std::size_t>(at - start)};
        endedLine = at == end || *at != ',';
        if (at != end && *at == ',')
            ++at;
        else
            PassLineEnd();
        if (!item.empty() && (item.front() < '0' || item.back() < '0')) item = Bare(item);
        return true;
    }

    /// What is left of the line, without its end.
    Success RestOfLine(std::string_view& line)
    {
        if (at == end) return false;
        const char* const start = at;
        while (at != end && *at != '\n' && *at != '\r') ++at;
        line = {start, static_cast<std::size_t>(at - start)};
        PassLineEnd();
        return true;
    }

    /// Leaves the line of the item that was read last.
    void SkipLine()
    {
        std::string_view ignored;
        if (!endedLine) (void)RestOfLine(ignored);
        endedLine = true;
    }

    template <class Kind> Success Number(Kind& place)
    {
        std::string_view item;
        return Next(item) && FitInto(place, WholeNumber(item.substr(0, item.find_first_of(" \t"))));
    }

private:
    static std::string_view Bare(std::string_view item)
    {
        item = WithoutBlanks(item);
        if (item.size() >= 2 && item.front() == '"' && item.back() == '"') item = item.substr(1, item.size() - 2);
        return item;
    }
    void PassLineEnd()
    {
        if (at != end && *at == '\r') ++at;
        if (at != end && *at == '\n') ++at;
    }

    const char* at;
    const char* end;
    bool endedLine = true;
};

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
    if (item.empty() || item.size() > 9) return FitInto(offset, WholeNumber(item));
    for (const char character : item) {
        if (!IsDigit(character)) return FitInto(offset, WholeNumber(item));
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
    return std::string(TrimmedRight(Columns(nearest, 1, 8)));
}

} // namespace halvern
