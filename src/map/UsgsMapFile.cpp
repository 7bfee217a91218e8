// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/UsgsMapFile.h"

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <utility>

#include "platform/Text.h"

namespace halvern {
namespace {

/// Edges in degrees, west positive.
struct Region {
    float west, north, east, south;
};

constexpr Region Regions[] = {
    {81.9989F, 47.4603F, 66.8825F, 40.4831F},   {84.8203F, 42.8194F, 73.8867F, 36.5414F},
    {85.6089F, 36.5922F, 75.4511F, 30.3583F},   {87.6261F, 31.0047F, 80.0239F, 24.5439F},
    {94.6103F, 36.6825F, 81.6497F, 28.9292F},   {96.6406F, 43.5081F, 81.9531F, 35.9917F},
    {97.2331F, 49.41F, 81.9867F, 41.6964F},     {106.0F, 33.0139F, 93.0F, 25.0F},
    {103.0F, 37.0033F, 94.0F, 32.5133F},        {109.0F, 43.01F, 94.0F, 34.9886F},
    {112.0F, 49.0078F, 96.0F, 40.9936F},        {115.0F, 37.0075F, 102.9894F, 31.3328F},
    {121.3378F, 35.8039F, 114.1156F, 32.5314F}, {124.3925F, 42.0094F, 109.0289F, 34.9958F},
    {124.8208F, 49.2336F, 111.0261F, 41.9817F},
};
constexpr int LastRegion = std::size(Regions);

/// The first region that holds a place, or 0.
int RegionAt(float latitude, float longitude)
{
    for (int i = 0; i < LastRegion; ++i) {
        const auto& region = Regions[i];
        if (region.west >= longitude && longitude >= region.east && region.north >= latitude &&
            latitude >= region.south)
            return i + 1;
    }
    return 0;
}

/// Ranges that the sweep tables tell apart.
enum class Reach { Small, Medium, Wide, Other };

bool IsOneOf(double range, std::initializer_list<double> steps)
{
    return std::find(steps.begin(), steps.end(), range) != steps.end();
}

Reach ReachOf(double range)
{
    if (IsOneOf(range, {2, 4, 8, 16})) return Reach::Small;
    if (IsOneOf(range, {32, 64, 128})) return Reach::Medium;
    if (IsOneOf(range, {256, 512})) return Reach::Wide;
    return Reach::Other;
}

/// Only the bottom right corner of the view lies in a region.
RegionSpan SweepFrom(int low, double range)
{
    const Reach reach = ReachOf(range);
    if (low >= 12) return reach == Reach::Small ? RegionSpan{low, low} : RegionSpan{1, LastRegion};
    if (reach == Reach::Small) return {low, 0};
    if (low <= 4) return {low, reach == Reach::Medium ? 7 : reach == Reach::Wide ? 11 : LastRegion};
    if (low <= 7) return {low, reach == Reach::Medium ? 11 : LastRegion};
    return {low, LastRegion};
}

/// Only the top left corner of the view lies in a region.
RegionSpan SweepTo(int high, double range)
{
    const Reach reach = ReachOf(range);
    if (reach == Reach::Small) return {high, high};
    if (high <= 4) {
        if (range == 32) return {high, high};
        return {high, reach == Reach::Medium ? 7 : reach == Reach::Wide ? 11 : LastRegion};
    }
    if (high <= 7 && reach == Reach::Medium) return {1, high};
    return {1, LastRegion};
}

/// Digits and four decimals; negative on the other side.
std::optional<float> Angle(std::string_view digits, std::string_view decimals, char side, char negativeSide)
{
    const auto isNumber = [](std::string_view text) { return std::all_of(text.begin(), text.end(), IsDigit); };
    if (!isNumber(digits) || !isNumber(decimals)) return {};
    const auto value = [](std::string_view text) {
        int number = 0;
        for (const char digit : text) number = number * 10 + (digit - '0');
        return number;
    };
    const auto angle = static_cast<float>(value(digits) + value(decimals) / 10000.0);
    return side == negativeSide ? -angle : angle;
}

constexpr std::size_t PointLength = 15;

void ReadPolyline(std::string_view line, const ViewFrame& view, MapLines& lines)
{
    if (line.empty() || !IsDigit(line[0])) return;
    const int colour = line[0] - '0';
    bool penUp = true;
    for (line.remove_prefix(1); line.size() >= PointLength; line.remove_prefix(PointLength)) {
        const auto lon = Angle(line.substr(0, 3), line.substr(3, 4), line[7], 'E');
        const auto lat = Angle(line.substr(8, 2), line.substr(10, 4), line[14], 'S');
        const bool inside =
            lat && lon && view.bottom < *lat && *lat < view.top && view.right < *lon && *lon < view.left;
        if (!inside) continue;
        if (std::exchange(penUp, false))
            lines.Start(*lon, *lat, colour);
        else
            lines.LineTo(*lon, *lat, colour);
    }
}

} // namespace

RegionSpan RegionsOf(const MapState& view)
{
    int high = RegionAt(view.MapTopLat, view.MapLeftLon);
    int low = RegionAt(view.MapBottomLat, view.MapRightLon);
    if (low == 0 && view.MapRange <= 64) low = RegionAt(view.MapCenterLat, view.MapCenterLon);
    if (low == 0 && high == 0) return {1, LastRegion};
    if (high == 0) return SweepFrom(low, view.MapRange);
    if (low == 0) return SweepTo(high, view.MapRange);
    return {std::min(low, high), std::max(low, high)};
}

std::array<std::string_view, 3> LayersOf(double range)
{
    if (range < 32) return {"RDI", "RDL", "WB"};
    return {"PB", "RDI", "WB"};
}

void ReadTileLines(std::string_view bytes, const ViewFrame& view, MapLines& lines)
{
    while (!bytes.empty()) {
        const auto end = bytes.find('\n');
        auto line = bytes.substr(0, end);
        if (line.ends_with('\r')) line.remove_suffix(1);
        ReadPolyline(line, view, lines);
        if (end == std::string_view::npos) return;
        bytes.remove_prefix(end + 1);
    }
}

} // namespace halvern
