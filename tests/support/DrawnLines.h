// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "map/DosMapFile.h"
#include "mapmaker/Geometry.h"

namespace halvern::test {

/// The lines that the program's own reader gives out.
struct DrawnLines final : MapLines {
    void Start(double x, double y, int colour) override { lines.push_back({colour, "", {{y, x}}}); }
    void LineTo(double x, double y, int) override { lines.back().vertices.push_back({y, x}); }
    std::vector<mapmaker::DrawnLine> lines;
};

} // namespace halvern::test
