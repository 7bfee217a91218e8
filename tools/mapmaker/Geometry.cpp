// SPDX-License-Identifier: GPL-3.0-or-later
#include "Geometry.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <unordered_map>

namespace halvern::mapmaker {

namespace {

double Shrink(double lat)
{
    return std::cos(lat * std::numbers::pi / 180);
}

/// Square of the distance from `place` to the stretch between `from` and `to`, in degrees of latitude.
double SquaredDistance(const Vertex& place, const Vertex& from, const Vertex& to)
{
    const double shrink = Shrink(place.lat);
    const double dx = (to.lon - from.lon) * shrink;
    const double dy = to.lat - from.lat;
    double px = (place.lon - from.lon) * shrink;
    double py = place.lat - from.lat;
    const double length = dx * dx + dy * dy;
    if (length > 0) {
        const double along = std::clamp((px * dx + py * dy) / length, 0.0, 1.0);
        px -= along * dx;
        py -= along * dy;
    }
    return px * px + py * py;
}

/// Clips the stretch from `from` to `to` by one edge after the other (Liang and Barsky's way). False: nothing inside.
bool ClipStretch(Vertex& from, Vertex& to, const Box& box)
{
    const double dx = to.lon - from.lon;
    const double dy = to.lat - from.lat;
    const double slope[4] = {-dx, dx, -dy, dy};
    const double room[4] = {from.lon - box.right, box.left - from.lon, from.lat - box.bottom, box.top - from.lat};
    double enter = 0;
    double leave = 1;
    for (int edge = 0; edge < 4; ++edge) {
        if (slope[edge] == 0) {
            if (room[edge] < 0) return false;
            continue;
        }
        const double at = room[edge] / slope[edge];
        if (slope[edge] < 0)
            enter = std::max(enter, at);
        else
            leave = std::min(leave, at);
    }
    if (enter > leave) return false;
    const Vertex start = from;
    if (leave < 1) to = {start.lat + leave * dy, start.lon + leave * dx};
    if (enter > 0) from = {start.lat + enter * dy, start.lon + enter * dx};
    return true;
}

void ClipTurn(const Path& path, double turn, const Box& box, std::vector<Path>& pieces)
{
    Path piece;
    const auto finish = [&] {
        if (piece.size() > 1) pieces.push_back(piece);
        piece.clear();
    };
    for (std::size_t i = 1; i < path.size(); ++i) {
        Vertex from{path[i - 1].lat, path[i - 1].lon + turn};
        Vertex to{path[i].lat, path[i].lon + turn};
        const Vertex end = to;
        if (!ClipStretch(from, to, box)) {
            finish();
            continue;
        }
        if (piece.empty() || !(piece.back() == from)) {
            finish();
            piece.push_back(from);
        }
        piece.push_back(to);
        if (!(to == end)) finish();
    }
    finish();
}

std::uint64_t EndKey(const KeyedPath& path, const Vertex& end)
{
    const double turned = end.lon - 360 * std::floor(end.lon / 360);
    const auto lon = static_cast<std::uint64_t>(std::llround(turned * 1e5)) % 36000000;
    const auto lat = static_cast<std::uint64_t>(std::llround((end.lat + 90) * 1e5));
    return (lon * 18000001 + lat) ^ (static_cast<std::uint64_t>(path.key) << 50);
}

/// Appends `more` to `path`, brought to the turn of the globe at which the path ends.
void Append(Path& path, const Path& more)
{
    const double turn = 360 * std::round((path.back().lon - more.front().lon) / 360);
    for (std::size_t i = 1; i < more.size(); ++i) path.push_back({more[i].lat, more[i].lon + turn});
}

/// The vertex between two others that lies farthest from the stretch between them, in tolerances, if one is farther
/// than `least`; 0 for none.
std::size_t Farthest(const Path& path, std::size_t first, std::size_t last, const std::vector<double>& weights,
                     double least)
{
    std::size_t split = 0;
    for (std::size_t i = first + 1; i < last; ++i)
        if (const double distance = SquaredDistance(path[i], path[first], path[last]) * weights[i]; distance > least) {
            least = distance;
            split = i;
        }
    return split;
}

std::vector<double> WeightsOf(const Path& path, const std::function<double(const Vertex&)>& tolerance)
{
    std::vector<double> weights(path.size());
    for (std::size_t i = 0; i < path.size(); ++i) weights[i] = 1 / std::pow(tolerance(path[i]), 2);
    return weights;
}

Path Kept(const Path& path, const std::vector<bool>& kept)
{
    Path simple;
    for (std::size_t i = 0; i < path.size(); ++i)
        if (kept[i]) simple.push_back(path[i]);
    return simple;
}

} // namespace

Box BoundsOf(const Path& path)
{
    Box box{-1e9, -1e9, 1e9, 1e9};
    for (const Vertex& vertex : path) {
        box.top = std::max(box.top, vertex.lat);
        box.bottom = std::min(box.bottom, vertex.lat);
        box.left = std::max(box.left, vertex.lon);
        box.right = std::min(box.right, vertex.lon);
    }
    return box;
}

bool Touch(const Box& one, const Box& other)
{
    return one.top >= other.bottom && other.top >= one.bottom && one.left >= other.right && other.left >= one.right;
}

double Coarseness(const Vertex& place)
{
    constexpr Box ManyStations[] = {
        {51, 125, 24, 66},      // United States, southern Canada
        {23, 161, 18, 154},     // Hawaii
        {65, 11, 35, -32},      // Europe
        {46, -129, 30, -146},   // Japan
        {-24, -137, -44, -154}, // eastern Australia
        {-34, -166, -48, -179}, // New Zealand
    };
    constexpr double Elsewhere = 1.8;
    constexpr double PolarSeas = 3;
    const Vertex turned{place.lat, std::remainder(place.lon, 360)};
    for (const Box& box : ManyStations)
        if (box.Holds(turned)) return 1;
    return place.lat < -60 ? PolarSeas : std::clamp(Elsewhere + (place.lat - 67) * 0.1, Elsewhere, PolarSeas);
}

std::vector<bool> KeptVertices(const Path& path, const std::function<double(const Vertex&)>& tolerance)
{
    std::vector<bool> kept(path.size(), path.size() < 3);
    if (path.size() < 3) return kept;
    const auto weights = WeightsOf(path, tolerance);
    kept.front() = kept.back() = true;
    std::vector<std::pair<std::size_t, std::size_t>> spans{{0, path.size() - 1}};
    while (!spans.empty()) {
        const auto [first, last] = spans.back();
        spans.pop_back();
        const std::size_t split = Farthest(path, first, last, weights, 1);
        if (split == 0) continue;
        kept[split] = true;
        spans.emplace_back(first, split);
        spans.emplace_back(split, last);
    }
    return kept;
}

Path Simplify(const Path& path, double tolerance, double (*coarseness)(const Vertex&))
{
    return Kept(path, KeptVertices(path, [&](const Vertex& vertex) { return tolerance * coarseness(vertex); }));
}

void TakeShortWays(Path& path)
{
    double turn = 0;
    for (std::size_t i = 1; i < path.size(); ++i) {
        const double way = path[i].lon - (path[i - 1].lon - turn);
        if (std::abs(way) != 360) turn -= 360 * std::round(way / 360);
        path[i].lon += turn;
    }
}

std::vector<Path> Clip(const Path& path, const Box& box)
{
    std::vector<Path> pieces;
    if (path.empty()) return pieces;
    const Box bounds = BoundsOf(path);
    const double first = std::ceil((box.right - bounds.left) / 360);
    const double last = std::floor((box.left - bounds.right) / 360);
    for (double turn = first; turn <= last && Touch({bounds.top, 0, bounds.bottom, 0}, {box.top, 0, box.bottom, 0});
         ++turn)
        ClipTurn(path, turn * 360, box, pieces);
    return pieces;
}

std::vector<KeyedPath> JoinEnds(std::vector<KeyedPath> pieces)
{
    std::unordered_multimap<std::uint64_t, std::size_t> ends;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        ends.emplace(EndKey(pieces[i], pieces[i].vertices.front()), i);
        ends.emplace(EndKey(pieces[i], pieces[i].vertices.back()), i);
    }
    std::vector<bool> used(pieces.size(), false);
    // The one other piece at an end; where three meet, the line stays cut.
    const auto partner = [&](const KeyedPath& path, const Vertex& end) -> std::size_t {
        const std::uint64_t key = EndKey(path, end);
        const auto [from, to] = ends.equal_range(key);
        std::size_t found = pieces.size();
        if (std::distance(from, to) != 2) return found;
        for (auto it = from; it != to; ++it)
            if (!used[it->second] && pieces[it->second].key == path.key) found = it->second;
        return found;
    };
    std::vector<KeyedPath> joined;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (used[i]) continue;
        used[i] = true;
        KeyedPath path = std::move(pieces[i]);
        for (int direction = 0; direction < 2; ++direction) {
            for (std::size_t next; (next = partner(path, path.vertices.back())) < pieces.size();) {
                used[next] = true;
                Path& more = pieces[next].vertices;
                if (EndKey(path, more.front()) != EndKey(path, path.vertices.back()))
                    std::reverse(more.begin(), more.end());
                Append(path.vertices, more);
                more.clear();
            }
            std::reverse(path.vertices.begin(), path.vertices.end());
        }
        joined.push_back(std::move(path));
    }
    return joined;
}

std::vector<Path> CutToRuns(const Path& path, std::size_t most)
{
    std::vector<Path> runs;
    for (std::size_t first = 0; first + 1 < path.size(); first += most - 1) {
        const std::size_t last = std::min(first + most, path.size());
        runs.emplace_back(path.begin() + static_cast<std::ptrdiff_t>(first),
                          path.begin() + static_cast<std::ptrdiff_t>(last));
    }
    return runs;
}

Path Densify(const Path& path, double step)
{
    Path dense;
    for (const Vertex& vertex : path) {
        if (!dense.empty()) {
            const Vertex from = dense.back();
            const double way = std::max(std::abs(vertex.lat - from.lat), std::abs(vertex.lon - from.lon));
            const int parts = static_cast<int>(std::ceil(way / step));
            for (int part = 1; part < parts; ++part)
                dense.push_back({from.lat + (vertex.lat - from.lat) * part / parts,
                                 from.lon + (vertex.lon - from.lon) * part / parts});
        }
        dense.push_back(vertex);
    }
    return dense;
}

Area::Area(const std::vector<Path>& rings) : rows_(180 * RowsPerDegree + 1)
{
    for (const Path& ring : rings)
        for (std::size_t i = 1; i < ring.size(); ++i) {
            const std::size_t first = RowOf(std::min(ring[i - 1].lat, ring[i].lat));
            const std::size_t last = RowOf(std::max(ring[i - 1].lat, ring[i].lat));
            for (std::size_t row = first; row <= last; ++row) rows_[row].push_back({ring[i - 1], ring[i]});
        }
}

std::size_t Area::RowOf(double lat)
{
    return static_cast<std::size_t>((std::clamp(lat, -90.0, 90.0) + 90) * RowsPerDegree);
}

bool Area::Holds(const Vertex& vertex) const
{
    bool inside = false;
    for (const Edge& edge : rows_[RowOf(vertex.lat)]) {
        if ((edge.from.lat > vertex.lat) == (edge.to.lat > vertex.lat)) continue;
        const double part = (vertex.lat - edge.from.lat) / (edge.to.lat - edge.from.lat);
        if (vertex.lon < edge.from.lon + part * (edge.to.lon - edge.from.lon)) inside = !inside;
    }
    return inside;
}

} // namespace halvern::mapmaker
