// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "state/MapFrm.h"

namespace halvern {

/// Takes the points of a line map as they come. Degrees, always finite: x longitude, west positive, y latitude.
class MapLines {
public:
    virtual ~MapLines() = default;
    /// The first point of a polyline.
    virtual void Start(double x, double y, int colour) = 0;
    /// A line from the last point to this one.
    virtual void LineTo(double x, double y, int colour) = 0;
};

/// Reads the lines of a map once more, from the file that they came from.
using ReadAgain = std::function<void(MapLines& lines)>;

/// Draws on the twin of the map, whose picture the map takes over when all is there (`FinishLineMap`); the map's
/// painters are told what stands there now, and how to have it again.
class BothSurfaces final : public MapLines {
public:
    /// @param again  has the same lines read once more
    BothSurfaces(MapForm& form, const ReadAgain& again);
    ~BothSurfaces() override;
    BothSurfaces(const BothSurfaces&) = delete;
    BothSurfaces& operator=(const BothSurfaces&) = delete;
    void Start(double x, double y, int colour) override
    {
        ++count;
        twin.Point(x, y, colour);
    }
    void LineTo(double x, double y, int colour) override
    {
        ++count;
        twin.LineTo(x, y, colour);
    }

private:
    Surface& map;
    Surface& twin;
    std::size_t count = 0;
};

} // namespace halvern
