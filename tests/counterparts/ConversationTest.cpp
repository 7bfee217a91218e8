// SPDX-License-Identifier: GPL-3.0-or-later
// A conversation on the air with a real packet engine between: what the operator types goes out as frames that the
// engine transmits, what the other station says comes as sound.
#include "counterparts/KissEngine.h"
#include "platform/Text.h"

namespace halvern::test {
namespace {

using ::testing::ElementsAre;

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
