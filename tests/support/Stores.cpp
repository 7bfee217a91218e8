// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Stores.h"

namespace halvern::test {

std::vector<std::string> StoresOf(const Halvern& halvern)
{
    const List* const lists[] = {&halvern.PositionFrm.PosLst,    &halvern.StatusFrm.StatusLst,
                                 &halvern.DigiFrm.DigiLst,       &halvern.TerminalFrm.RawPacketLst,
                                 &halvern.DxFrm.ResourceLst,     &halvern.MessageFrm.MsgToYouLst,
                                 &halvern.MessageFrm.TrafficLst, &halvern.MessageFrm.BullLst};
    std::vector<std::string> all;
    for (const auto* list : lists)
        for (int row = 0; row < list->Count(); ++row)
            all.push_back(list->Name() + "[" + std::to_string(row) + "] " + list->Row(row));
    const auto& grid = halvern.HeardFrm.HeardGrid;
    for (int row = 0; row < grid.Rows(); ++row)
        for (int column = 0; column < grid.Cols(); ++column)
            all.push_back(grid.Name() + "[" + std::to_string(row) + "] " + grid.Cell(row, column));
    return all;
}

} // namespace halvern::test
