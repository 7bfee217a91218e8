// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Rows.h"
#include "support/StationTest.h"

namespace halvern::test {

/// Opens a station's TNC and its server, logged in, and switches the gate on, both ways. No beacons.
inline void OpenGate(Station& station)
{
    auto& main = station.halvern.ConMdiFrm;
    auto& setUp = station.halvern.SetUpfrm;
    station.OpenTnc();
    setUp.IntDomainCombo.SetText("server");
    main.PortIp.Click();
    main.InternetSoc.Arrived("# server\r\n");
    main.Timer2.Stop();
    setUp.IgateOpt.Select(1);
    setUp.IgateBIOpt.Select(1);
    station.halvern.Engine.IgateOn = true;
    station.SentBy(main.InternetSoc);
}

/// A station whose gate is open both ways.
struct GateTest : StationTest {
    GateTest() { OpenGate(station); }
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
