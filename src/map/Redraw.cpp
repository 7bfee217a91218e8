// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/Redraw.h"

#include <utility>

#include "map/DosMap.h"
#include "map/UsgsMap.h"
#include "view/Geometry.h"
#include "view/Phg.h"

namespace halvern {

void RangeSelected(Halvern& halvern)
{
    auto& main = halvern.ConMdiFrm;
    auto& view = halvern.Map;
    if (main.BitMapMenu.Checked()) return;
    halvern.MapFrm.Map1.AutoRepaint = false;
    // The selectors are being filled at start: nothing to draw yet.
    if (std::exchange(view.MapBusy, false)) return;
    if (!std::exchange(view.MapSyncPending, false)) {
        KeepView(view);
        view.MapRange = RangeOfStep(main.ScaleCombo.Text());
        MapSetGeometry(halvern);
    }
    if (main.DosMapMenu.Checked()) ShowDosMap(halvern, DosMapTexts::Redraw);
    if (halvern.Engine.Ended) return;
    if (main.UsgsMapMenu.Checked()) DrawUsgsMap(halvern);
    if (main.PlotPhgFixedMenu.Checked()) PlotPhg(halvern, 0, 0);
    if (main.PlotPhgMobileMenu.Checked()) PlotPhg(halvern, 1, 0);
    view.ZoomDown = view.ZoomMoved = false;
    view.MapBusy = false;
}

} // namespace halvern
