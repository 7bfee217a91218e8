// SPDX-License-Identifier: GPL-3.0-or-later
// Real packets as sound, decoded by the packet engine direwolf, and back to our stores by its KISS port and by its
// pseudo-terminal: row for row what the same lines leave that are handed straight to the engine.
#include <algorithm>

#include "counterparts/KissEngine.h"

namespace halvern::test {
namespace {

/// As the frame codec gives it back: only the last used entry of the path keeps its star.
std::string OneStar(const std::string& line)
{
    auto header = line.substr(0, line.find(':'));
    const auto last = header.rfind('*');
    for (auto star = header.find('*'); star != std::string::npos && star < header.rfind('*'); star = header.find('*'))
        header.erase(star, 1);
    return last == std::string::npos ? line : header + line.substr(line.find(':'));
}

TEST_F(KissEngine, RealPacketsLeaveTheSameRowsByTheAirAsByHand)
{
    const auto traffic = TrafficFile("tape-2005.tnc2");
    auto lines = LinesFrom(traffic.empty() ? DataFolder() + "/demo/world.tnc2" : traffic);
    lines.resize(std::min<std::size_t>(lines.size(), 1000));
    ASSERT_GT(lines.size(), 500u);
    const auto sound = SoundOf(lines);

    Station byHand;
    byHand.SetUp();
    for (const auto& line : lines) byHand.Hear(OneStar(line), "SOUND");

    ASSERT_NO_FATAL_FAILURE(StartEngine());
    Listener bySocket, bySerial;
    bySocket.main.SoundCardMenu.Click();
    ASSERT_TRUE(bySocket.main.SoundCardMenu.Checked());
    bySerial.main.PortTnc.Click();
    ASSERT_TRUE(bySerial.main.PortTnc.Checked());

    engine.write(sound);
    const int expected = byHand.halvern.TerminalFrm.RawPacketLst.Count();
    RunUntil([&] { return bySocket.Heard() >= expected && bySerial.Heard() >= expected; });
    EXPECT_EQ(StoresOf(bySocket.station.halvern), StoresOf(byHand.halvern)) << "by port 4000";
    EXPECT_EQ(StoresOf(bySerial.station.halvern), StoresOf(byHand.halvern)) << "by the pseudo-terminal";
    std::printf("%zu lines on the air, %d by port 4000, %d by the pseudo-terminal\n", lines.size(), bySocket.Heard(),
                bySerial.Heard());
}

} // namespace
} // namespace halvern::test
