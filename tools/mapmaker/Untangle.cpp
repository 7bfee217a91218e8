// SPDX-License-Identifier: GPL-3.0-or-later
#include "Geometry.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <set>

namespace halvern::mapmaker {

namespace {

/// A place in whole units; exact, so that two lines either cross or don't.
struct Point {
    std::int64_t x = 0;
    std::int64_t y = 0;
};

/// What is left of a line between two neighbours that are kept.
struct Stretch {
    std::uint32_t line = 0;
    std::uint32_t from = 0;
    std::uint32_t to = 0;
};

std::int64_t Side(const Point& from, const Point& to, const Point& place)
{
    const std::int64_t turn = (to.x - from.x) * (place.y - from.y) - (to.y - from.y) * (place.x - from.x);
    return (turn > 0) - (turn < 0);
}

/// Whether two stretches cross in the middle of both; to touch is not to cross.
bool Cross(const Point& a, const Point& b, const Point& c, const Point& d)
{
    return Side(a, b, c) * Side(a, b, d) < 0 && Side(c, d, a) * Side(c, d, b) < 0;
}

class Tangle {
public:
    Tangle(const std::vector<Path*>& lines, int units) : lines_(lines), units_(units) {}

    void Add(std::vector<bool> kept) { kept_.push_back(std::move(kept)); }

    /// Gives back a vertex to every stretch that crosses another one. @return the pairs that cross and have none to get
    /// back
    std::size_t Pass(bool& changed)
    {
        Collect();
        std::set<std::pair<std::uint32_t, std::uint32_t>> stuck;
        changed = false;
        for (std::size_t first = 0, last; first < entries_.size(); first = last) {
            for (last = first; last < entries_.size() && entries_[last].first == entries_[first].first;) ++last;
            for (std::size_t i = first; i < last; ++i)
                for (std::size_t j = first; j < i; ++j) {
                    const Stretch one = stretches_[entries_[i].second], other = stretches_[entries_[j].second];
                    if (!CrossEachOther(one, other)) continue;
                    const bool finer = Split(one), otherFiner = Split(other);
                    changed = changed || finer || otherFiner;
                    if (!finer && !otherFiner) stuck.insert({entries_[i].second, entries_[j].second});
                }
        }
        return stuck.size();
    }

    void Finish()
    {
        for (std::size_t i = 0; i < lines_.size(); ++i) {
            Path path;
            for (std::size_t k = 0; k < lines_[i]->size(); ++k)
                if (kept_[i][k]) path.push_back((*lines_[i])[k]);
            *lines_[i] = std::move(path);
        }
    }

private:
    static constexpr std::int64_t SquaresPerDegree = 50;

    Point At(std::uint32_t line, std::uint32_t vertex) const
    {
        const Vertex& place = (*lines_[line])[vertex];
        return {std::llround(place.lon * units_), std::llround(place.lat * units_)};
    }

    /// The squares of the globe that stretches touch, each with these stretches.
    void Collect()
    {
        stretches_.clear();
        entries_.clear();
        for (std::uint32_t line = 0; line < lines_.size(); ++line)
            for (std::uint32_t from = 0, to = 1; to < kept_[line].size(); ++to)
                if (kept_[line][to]) {
                    Enter({line, from, to});
                    from = to;
                }
        std::sort(entries_.begin(), entries_.end());
    }

    void Enter(const Stretch& stretch)
    {
        const Point a = At(stretch.line, stretch.from), b = At(stretch.line, stretch.to);
        const std::int64_t side = units_ / SquaresPerDegree, around = 360 * SquaresPerDegree;
        const auto square = [&](std::int64_t place) { return (place + 720 * std::int64_t{units_}) / side; };
        for (std::int64_t x = square(std::min(a.x, b.x)); x <= square(std::max(a.x, b.x)); ++x)
            for (std::int64_t y = square(std::min(a.y, b.y)); y <= square(std::max(a.y, b.y)); ++y)
                entries_.emplace_back(y * around + x % around, static_cast<std::uint32_t>(stretches_.size()));
        stretches_.push_back(stretch);
    }

    bool CrossEachOther(const Stretch& one, const Stretch& other) const
    {
        Point c = At(other.line, other.from), d = At(other.line, other.to);
        const Point a = At(one.line, one.from), b = At(one.line, one.to);
        const std::int64_t globe = 360 * std::int64_t{units_};
        const std::int64_t turn = std::llround(static_cast<double>(a.x - c.x) / static_cast<double>(globe)) * globe;
        c.x += turn;
        d.x += turn;
        return Cross(a, b, c, d);
    }

    /// False where nothing lies between the ends; true also where another pair has split it in this pass.
    bool Split(const Stretch& stretch)
    {
        if (stretch.to - stretch.from < 2) return false;
        const Path& path = *lines_[stretch.line];
        const Point a = At(stretch.line, stretch.from), b = At(stretch.line, stretch.to);
        std::uint32_t farthest = stretch.from + 1;
        double most = -1;
        const double shrink = std::cos(path[stretch.from].lat * std::numbers::pi / 180);
        const double dx = static_cast<double>(b.x - a.x) * shrink, dy = static_cast<double>(b.y - a.y);
        const double length = dx * dx + dy * dy;
        for (std::uint32_t i = stretch.from + 1; i < stretch.to; ++i) {
            const Point place = At(stretch.line, i);
            double px = static_cast<double>(place.x - a.x) * shrink, py = static_cast<double>(place.y - a.y);
            const double along = length > 0 ? std::clamp((px * dx + py * dy) / length, 0.0, 1.0) : 0;
            px -= along * dx;
            py -= along * dy;
            if (px * px + py * py > most) {
                most = px * px + py * py;
                farthest = i;
            }
        }
        kept_[stretch.line][farthest] = true;
        return true;
    }

    const std::vector<Path*>& lines_;
    const int units_;
    std::vector<std::vector<bool>> kept_;
    std::vector<Stretch> stretches_;
    std::vector<std::pair<std::int64_t, std::uint32_t>> entries_;
};

/// In whole units, without neighbours that fall together.
void Snap(Path& path, int units)
{
    for (Vertex& vertex : path)
        vertex = {static_cast<double>(std::llround(vertex.lat * units)) / units,
                  static_cast<double>(std::llround(vertex.lon * units)) / units};
    path.erase(std::unique(path.begin(), path.end()), path.end());
}

} // namespace

std::size_t SimplifyTogether(const std::vector<Path*>& lines, int unitsPerDegree,
                             const std::function<double(const Vertex&)>& tolerance)
{
    Tangle tangle(lines, unitsPerDegree);
    for (Path* line : lines) {
        Snap(*line, unitsPerDegree);
        tangle.Add(KeptVertices(*line, tolerance));
    }
    bool changed = true;
    std::size_t stuck = 0;
    while (changed) stuck = tangle.Pass(changed);
    tangle.Finish();
    return stuck;
}

} // namespace halvern::mapmaker
