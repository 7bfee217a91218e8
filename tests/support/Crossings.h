// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mapmaker/Geometry.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace halvern::test {

/// How often lines of whole units cross each other or themselves in the middle of two stretches.
inline int Crossings(const std::vector<mapmaker::Path>& lines, int unitsPerDegree)
{
    struct Stretch {
        long ax, ay, bx, by;
    };
    std::vector<Stretch> all;
    const auto unit = [&](double degrees) { return std::lround(degrees * unitsPerDegree); };
    for (const auto& line : lines)
        for (std::size_t i = 1; i < line.size(); ++i) {
            auto from = line[i - 1], to = line[i];
            if (from.lon > to.lon) std::swap(from, to);
            all.push_back({unit(from.lon), unit(from.lat), unit(to.lon), unit(to.lat)});
        }
    std::ranges::sort(all, {}, &Stretch::ax);
    const auto side = [](long ax, long ay, long bx, long by, long x, long y) {
        const long turn = (bx - ax) * (y - ay) - (by - ay) * (x - ax);
        return (turn > 0) - (turn < 0);
    };
    int crossings = 0;
    for (std::size_t i = 0; i < all.size(); ++i)
        for (std::size_t j = i + 1; j < all.size() && all[j].ax < all[i].bx; ++j) {
            const auto &a = all[i], &b = all[j];
            crossings += side(a.ax, a.ay, a.bx, a.by, b.ax, b.ay) * side(a.ax, a.ay, a.bx, a.by, b.bx, b.by) < 0 &&
                         side(b.ax, b.ay, b.bx, b.by, a.ax, a.ay) * side(b.ax, b.ay, b.bx, b.by, a.bx, a.by) < 0;
        }
    return crossings;
}

} // namespace halvern::test
