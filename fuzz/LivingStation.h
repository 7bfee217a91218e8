// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdio>
#include <cstdlib>

#include "platform/Text.h"
#include "support/Station.h"

/// What the fuzz targets of the engine share: a station that lives as long as the process, and what has to hold of it.
namespace halvern {

inline void Require(bool holds, const char* what)
{
    if (holds) return;
    std::fprintf(stderr, "broken: %s\n", what);
    std::abort();
}

/// What holds after every line, whatever it was.
inline void CheckInvariants(const Halvern& halvern)
{
    const auto& positions = halvern.PositionFrm.PosLst;
    Require(positions.Count() <= static_cast<int>(halvern.Map.StationPlot.size()) || positions.Count() == 0,
            "a plot record for every position row");
    Require(positions.Count() <= halvern.MapFrm.SymPic.Count() || positions.Count() == 0, "a picture for every row");
    Require(positions.Count() <= halvern.MapFrm.SymLbl.Count() || positions.Count() == 0, "a label for every row");
    Require(halvern.ConMdiFrm.MyObjectLst.Count() == halvern.ConMdiFrm.TransmitLst.Count(),
            "objects and stages are parallel");
    for (int i = 0; i < positions.Count(); ++i) {
        const auto& row = positions.Row(i);
        Require(row.size() >= 37 && row[17] == 'z', "a position row has its columns");
        Require(TrimmedRight(Columns(row, 1, 9)) == TrimmedRight(halvern.Map.StationPlot[i].Caption),
                "one row, one station");
    }
}

/// A quiet station with a call and a path.
inline test::Station& LivingStation()
{
    static test::Station* const station = [] {
        auto* made = new test::Station;
        made->SetUp();
        made->halvern.SetUpfrm.UnPath.Preselect(1);
        made->dialogs.Say = nullptr;
        return made;
    }();
    return *station;
}

} // namespace halvern
