// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/UsgsMap.h"

#include "map/UsgsMapFile.h"
#include "platform/Text.h"
#include "view/Plotting.h"

namespace halvern {
namespace {

/// Shows the hourglass for as long as it lives, and then what was there before: the cross-hair is the sign of the
/// zoom-and-pan mode and must come back also where the drawing fails.
class Waiting {
public:
    explicit Waiting(Surface& surface) : surface(surface), before(surface.MousePointer())
    {
        surface.SetMousePointer(Pointer::HourGlass);
    }
    ~Waiting() { surface.SetMousePointer(before); }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

private:
    Surface& surface;
    const Pointer before;
};

} // namespace

void DrawUsgsMap(Halvern& halvern)
{
    const Waiting waiting(halvern.MapFrm.Map1);
    const auto& view = halvern.Map;
    const auto& files = halvern.Outside.files;
    const auto regions = RegionsOf(view);
    const ViewFrame frame{view.MapLeftLon, view.MapTopLat, view.MapRightLon, view.MapBottomLat};
    for (int region = regions.first; region <= regions.last; ++region)
        for (const auto layer : LayersOf(view.MapRange)) {
            const auto file =
                halvern.ProgramFolder + "\\Mapdata\\S" + ZeroFilled(region, 2) + "_" + std::string(layer) + ".GRF";
            const auto bytes = files.Read(file);
            if (!bytes) throw RuntimeFailure(failure::FileNotFound, "File not found: '" + files.Shown(file) + "'");
            BothSurfaces surfaces(halvern.MapFrm, [&files, file, frame](MapLines& lines) {
                ReadTileLines(files.Read(file).value_or(""), frame, lines);
            });
            ReadTileLines(*bytes, frame, surfaces);
        }
    FinishLineMap(halvern);
}

} // namespace halvern
