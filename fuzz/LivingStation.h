// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdio>
#include <cstdlib>

#include "Invariants.h"
#include "support/Station.h"

/// What the fuzz targets of the engine share: a station that lives as long as the process, and what has to hold of it.
namespace halvern {

inline void Require(bool holds, const char* what)
{
    if (holds) return;
    std::fprintf(stderr, "broken: %s\n", what);
    std::abort();
}

/// See BrokenInvariant.
inline void CheckInvariants(const Halvern& halvern)
{
    const char* const broken = BrokenInvariant(halvern);
    Require(broken == nullptr, broken);
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
