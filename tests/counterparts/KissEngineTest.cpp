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
    RunUntil([&] { return bySocket.Heard() >= expected && bySerial.Heard() >= expected; }, 60000);
    EXPECT_EQ(StoresOf(bySocket.station.halvern), StoresOf(byHand.halvern)) << "by port 4000";
    EXPECT_EQ(StoresOf(bySerial.station.halvern), StoresOf(byHand.halvern)) << "by the pseudo-terminal";
    std::printf("%zu lines on the air, %d by port 4000, %d by the pseudo-terminal\n", lines.size(), bySocket.Heard(),
                bySerial.Heard());
}

/// What the operator types goes out as frames that the engine transmits, what the other station says comes as sound.
struct Conversation : KissEngine {
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(KissEngine::SetUp());
        if (IsSkipped()) return;
        ASSERT_NO_FATAL_FAILURE(StartEngine());
        listener.main.SoundCardMenu.Click();
        ASSERT_TRUE(listener.main.SoundCardMenu.Checked());
        listener.main.Timer2.Stop(); // no beacons in this story
    }
    /// The other station's packet as sound, and some silence that lets the channel clear.
    void OnTheAir(const std::string& line)
    {
        engine.write(SoundOf({line}));
        engine.write(QByteArray(44100, '\0'));
    }
    bool Transmitted(const std::string& line)
    {
        return RunUntil([&] { return Holds(Log(), "[0L] " + line); }, 10000);
    }
    Listener listener;
    MessageForm& form = listener.station.halvern.MessageFrm;
};

TEST_F(Conversation, AMessageAndItsAckGoEachWay)
{
    form.SendCallTxt.SetText("Q1ABC");
    form.MsgTxt.SetText("Are you there?");
    form.MsgTxt.Press(13);
    listener.station.time.Wait(1);
    EXPECT_TRUE(Transmitted("Q0OWN>APHV01::Q1ABC    :Are you there?{1")) << Log();

    OnTheAir("Q1ABC>APRS::Q0OWN    :ack1");
    EXPECT_TRUE(RunUntil([&] { return form.OutMsg.Count() == 0; }, 10000)) << Log();
    EXPECT_FALSE(form.Timer1.Running());

    OnTheAir("Q1ABC>APRS::Q0OWN    :Yes, loud and clear{7");
    EXPECT_TRUE(Transmitted("Q0OWN>APHV01::Q1ABC    :ack7")) << Log();
    EXPECT_THAT(Station::Rows(form.MsgToYouLst),
                ElementsAre("Q0OWN>Q1ABC:1.Are you there? MESSAGE RECEIVED", "Q1ABC>Q0OWN:7.Yes, loud and clear"));
}

} // namespace
} // namespace halvern::test
