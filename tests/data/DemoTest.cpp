// SPDX-License-Identifier: GPL-3.0-or-later
#include <fstream>
#include <set>

#include <gtest/gtest.h>

#include "platform/Text.h"
#include "support/Station.h"

namespace halvern::test {
namespace {

TEST(DemoTest, EveryPacketIsUnderAnInventedCallAndFindsItsPlace)
{
    Station station;
    station.SetUp();
    station.halvern.SetUpfrm.CallSignTxt.SetText("Q0DEMO");
    std::ifstream file(DataFolder() + "/demo/world.tnc2", std::ios::binary);
    const auto& rows = station.halvern.PositionFrm.PosLst;
    std::set<std::string> placed;
    int lines = 0;
    for (std::string line; std::getline(file, line); ++lines) {
        const auto call = line.substr(0, line.find('>'));
        EXPECT_EQ(call[0], 'Q') << line;
        station.Hear(line, "TCPIP");
        if (!Holds("!=@`$;", line.substr(line.find(':') + 1, 1))) continue;
        if (Holds(line, ":$ULTW")) continue;
        auto name = line[line.find(':') + 1] == ';' ? line.substr(line.find(':') + 2, 9) : call;
        if (!placed.insert(CallField(name)).second) continue;
        EXPECT_NE(rows.Find(CallField(name)), NotFound) << line;
    }
    EXPECT_GT(lines, 3000);
    EXPECT_GT(placed.size(), 450u);
    EXPECT_EQ(station.halvern.TerminalFrm.RawPacketLst.Count(), lines);
    EXPECT_GE(station.halvern.MessageFrm.MsgToYouLst.Count(), 4);
    EXPECT_GT(station.halvern.MessageFrm.BullLst.Count(), 5);
    EXPECT_GT(station.halvern.DxFrm.ResourceLst.Count(), 3);
}

} // namespace
} // namespace halvern::test
