// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Text.h"
#include "state/Halvern.h"

namespace halvern {

/// What holds after every line, whatever it was. @return what does not, or nullptr
inline const char* BrokenInvariant(const Halvern& halvern)
{
    const auto& positions = halvern.PositionFrm.PosLst;
    const int count = positions.Count();
    if (count > 0 && count > static_cast<int>(halvern.Map.StationPlot.size()))
        return "a plot record for every position row";
    if (count > 0 && count > halvern.MapFrm.SymPic.Count()) return "a picture for every row";
    if (count > 0 && count > halvern.MapFrm.SymLbl.Count()) return "a label for every row";
    if (halvern.ConMdiFrm.MyObjectLst.Count() != halvern.ConMdiFrm.TransmitLst.Count())
        return "objects and stages are parallel";
    for (int i = 0; i < count; ++i) {
        const auto& row = positions.Row(i);
        if (row.size() < 37 || row[17] != 'z') return "a position row has its columns";
        if (TrimmedRight(Columns(row, 1, 9)) != TrimmedRight(halvern.Map.StationPlot[i].Caption))
            return "one row, one station";
    }
    return nullptr;
}

} // namespace halvern
