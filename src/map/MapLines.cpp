// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/MapLines.h"

namespace halvern {
namespace {

class OnPainter final : public MapLines {
public:
    explicit OnPainter(Painter& painter) : painter(painter) {}
    void Start(double x, double y, int colour) override { painter.Point(x, y, colour); }
    void LineTo(double x, double y, int colour) override { painter.LineTo(x, y, colour); }

private:
    Painter& painter;
};

} // namespace

BothSurfaces::BothSurfaces(MapForm& form, const ReadAgain& again) : map(form.Map1), twin(form.Pic1)
{
    for (auto* surface : {&map, &twin})
        surface->BeginLines([again](Painter& painter) {
            OnPainter lines(painter);
            again(lines);
        });
}

BothSurfaces::~BothSurfaces()
{
    map.EndLines(count);
    twin.EndLines(0);
}

} // namespace halvern
