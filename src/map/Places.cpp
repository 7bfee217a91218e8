// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/Places.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "view/Ground.h"

namespace halvern {
namespace {

constexpr std::string_view Magic = "HalvernPlaces 1\n";
constexpr int CellSize = 2, CellRows = 180 / CellSize,
              CellColumns = 360 / CellSize; ///< degrees; from the north-west corner
constexpr double UnitsInCell = 65536;
constexpr std::size_t HeadLength = Magic.size() + 4 * CellRows * CellColumns, FixedLength = 10;
constexpr double Radian = std::numbers::pi / 180, FarFromAll = 1000; ///< kilometres
constexpr int WidestStep = 13;

/// A little-endian number. The caller sees to it that its bytes are there.
std::uint32_t NumberAt(std::string_view bytes, std::size_t at, int length)
{
    std::uint32_t number = 0;
    for (int i = length - 1; i >= 0; --i) number = number << 8 | static_cast<unsigned char>(bytes[at + i]);
    return number;
}

bool HasHead(std::string_view bytes)
{
    return bytes.size() >= HeadLength && bytes.starts_with(Magic);
}

/// The records of one cell, in their order. Ends at damage.
class CellReader {
public:
    CellReader(std::string_view bytes, int row, int column) : row(row), column(column)
    {
        const int cell = row * CellColumns + column;
        const auto begin = NumberAt(bytes, Magic.size() + 4 * cell, 4);
        const auto end =
            cell + 1 < CellRows * CellColumns ? NumberAt(bytes, Magic.size() + 4 * (cell + 1), 4) : bytes.size();
        good = begin >= HeadLength && begin <= end && end <= bytes.size();
        if (good) rest = bytes.substr(begin, end - begin);
    }

    bool Next()
    {
        if (rest.empty()) return false;
        good = rest.size() >= FixedLength && rest.size() >= FixedLength + Length() && Length() > 0;
        if (!good) return rest = {}, false;
        place.lat = 90 - CellSize * (row + NumberAt(rest, 0, 2) / UnitsInCell);
        place.lon = 180 - CellSize * (column + NumberAt(rest, 2, 2) / UnitsInCell);
        place.people = NumberAt(rest, 4, 4);
        step = static_cast<unsigned char>(rest[8]);
        place.name = rest.substr(FixedLength, Length());
        rest.remove_prefix(FixedLength + Length());
        return true;
    }

    NamedPlace place;
    int step = 0; ///< named by views of a range of up to two to the power of it
    bool good = true;

private:
    std::size_t Length() const { return static_cast<unsigned char>(rest[9]); }

    const int row, column;
    std::string_view rest;
};

/// The ladder's top is 8000, just below two to the power of 13.
bool Names(int step, double range)
{
    return range <= std::ldexp(1.0, std::min(step, WidestStep));
}

bool MorePeople(const NamedPlace& a, const NamedPlace& b)
{
    return a.people > b.people;
}

int RowOf(double lat)
{
    return std::clamp(static_cast<int>(std::floor((90 - lat) / CellSize)), 0, CellRows - 1);
}

/// Looks for the nearest place from a position outwards, cells at a time, as far as a nearer one could lie.
class Search {
public:
    Search(std::string_view bytes, double lat, double lon) : bytes(bytes), lat(lat), lon(lon) {}

    std::optional<NearPlace> Run()
    {
        const int own = RowOf(lat);
        LookAlong(own);
        for (int away = 1; away < CellRows; ++away) {
            if (RowReachable(own - away)) LookAlong(own - away);
            if (RowReachable(own + away)) LookAlong(own + away);
        }
        if (found) found->bearing = GroundBearing({found->place.lat, found->place.lon}, {lat, lon});
        return found;
    }

private:
    bool Reachable(double kilometres) const { return !found || kilometres < found->kilometres; }

    bool RowReachable(int row) const
    {
        if (row < 0 || row >= CellRows) return false;
        const double north = 90 - row * CellSize, south = north - CellSize;
        return Reachable(std::max(lat - north, south - lat) * Radian * EarthRadius);
    }

    /// How far a meridian is that lies `apart` degrees away; beyond a quarter turn the pole is its nearest point.
    double ToMeridian(double apart) const
    {
        return std::asin(std::cos(lat * Radian) * std::sin(std::clamp(apart, 0.0, 90.0) * Radian)) * EarthRadius;
    }

    void LookAlong(int row)
    {
        const double across = (180 - lon) / CellSize;
        const int own = static_cast<int>(std::floor(across));
        Look(row, own);
        for (int away = 1; away <= CellColumns / 2; ++away) {
            if (Reachable(ToMeridian((own + away - across) * CellSize))) Look(row, own + away);
            if (Reachable(ToMeridian((across - (own - away + 1)) * CellSize))) Look(row, own - away);
        }
    }

    void Look(int row, int column)
    {
        CellReader records(bytes, row, ((column % CellColumns) + CellColumns) % CellColumns);
        while (records.Next()) {
            const auto& place = records.place;
            if (!Reachable(std::abs(place.lat - lat) * Radian * EarthRadius)) continue;
            const double distance = GroundDistance({place.lat, place.lon}, {lat, lon}) * NauticalMile;
            if (Reachable(distance)) found = NearPlace{place, distance};
        }
    }

    const std::string_view bytes;
    const double lat, lon;
    std::optional<NearPlace> found;
};

} // namespace

bool SoundPlaces(std::string_view bytes)
{
    if (!HasHead(bytes) || NumberAt(bytes, Magic.size(), 4) != HeadLength) return false;
    for (int cell = 0; cell < CellRows * CellColumns; ++cell) {
        CellReader records(bytes, cell / CellColumns, cell % CellColumns);
        while (records.Next())
            if (records.step > WidestStep) return false;
        if (!records.good) return false;
    }
    return true;
}

std::vector<NamedPlace> PlacesInView(std::string_view bytes, const PlaceView& view, double range, std::size_t most)
{
    std::vector<NamedPlace> places; // a heap whose front has the fewest people
    const bool sensible =
        view.top >= view.bottom && view.left >= view.right && view.left - view.right < 1e6 && std::abs(view.left) < 1e6;
    if (!HasHead(bytes) || most == 0 || !sensible) return places;
    const int west = static_cast<int>(std::floor((180 - view.left) / CellSize));
    const int east = static_cast<int>(std::floor((180 - view.right) / CellSize));
    const auto add = [&](const NamedPlace& place) {
        if (places.size() == most) {
            std::ranges::pop_heap(places, MorePeople);
            places.pop_back();
        }
        places.push_back(place);
        std::ranges::push_heap(places, MorePeople);
    };
    for (int row = RowOf(view.top); row <= RowOf(view.bottom); ++row)
        for (int column = west; column <= std::min(east, west + CellColumns - 1); ++column) {
            const int turns = static_cast<int>(std::floor(static_cast<double>(column) / CellColumns));
            CellReader records(bytes, row, column - turns * CellColumns);
            while (records.Next()) {
                auto& place = records.place;
                // A cell's places stand in order, the largest first.
                if (places.size() == most && place.people <= places.front().people) break;
                place.lon -= turns * 360.0;
                if (Names(records.step, range) && place.lat <= view.top && place.lat >= view.bottom &&
                    place.lon <= view.left && place.lon >= view.right)
                    add(place);
            }
        }
    std::ranges::sort_heap(places, MorePeople);
    return places;
}

std::optional<NearPlace> NearestPlace(std::string_view bytes, double lat, double lon)
{
    if (!HasHead(bytes) || !(std::abs(lat) <= 90) || !std::isfinite(lon)) return std::nullopt;
    return Search(bytes, lat, std::remainder(lon, 360)).Run();
}

const std::string& PlaceNames::Bytes()
{
    if (bytes) return *bytes;
    auto read = files.Read(path);
    if (!read)
        trouble = "There are no place names: " + files.Shown(path) + " can't be read.";
    else if (!SoundPlaces(*read))
        trouble = "There are no place names: " + files.Shown(path) + " is damaged.";
    return bytes.emplace(trouble.empty() ? std::move(*read) : std::string());
}

std::string PlaceNames::Trouble()
{
    Bytes();
    return trouble;
}

std::string WhereIs(PlaceNames& places, double lat, double lon)
{
    const auto near = places.Nearest(lat, lon);
    if (!near || near->kilometres > FarFromAll) return {};
    const std::string name(near->place.name);
    if (near->kilometres < 1) return "in " + name;
    return std::to_string(std::lround(near->kilometres)) + " km " + CompassPoint(near->bearing) + " of " + name;
}

} // namespace halvern
