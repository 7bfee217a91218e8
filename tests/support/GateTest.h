// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Rows.h"
#include "support/StationTest.h"

namespace halvern::test {

/// A station whose gate is open both ways.
struct GateTest : StationTest {
    GateTest() { station.OpenGate(); }
    void HearFromServer(const std::string& line) { main.InternetSoc.Arrived(line + "\r\n"); }
    /// What the list says of the last packet, and "" since then where there is no new row.
    std::string Outcome()
    {
        const auto& rows = main.DecisionLst;
        if (rows.Count() == seen) return "";
        seen = rows.Count();
        return std::string(gateRow::Outcome(rows.Row(seen - 1)));
    }
    int seen = 0;
};

} // namespace halvern::test
