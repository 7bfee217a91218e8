// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

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

/// Draws on the map and on its twin.
class BothSurfaces final : public MapLines {
public:
    explicit BothSurfaces(MapForm& form) : map(form.Map1), twin(form.Pic1) {}
    void Start(double x, double y, int colour) override
    {
        map.Point(x, y, colour);
        twin.Point(x, y, colour);
    }
    void LineTo(double x, double y, int colour) override
    {
        map.LineTo(x, y, colour);
        twin.LineTo(x, y, colour);
    }

private:
    Surface& map;
    Surface& twin;
};

} // namespace halvern
