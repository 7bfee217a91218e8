// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Notices.h"

#include "state/Rows.h"
#include "support/StationTest.h"

namespace halvern::test {
namespace {

struct Notices : StationTest {
    Notices() { main.SoundCardMenu.Click(); }
    /// A frame that names this station first and then a digipeater that no frame can name; its repeat is refused.
    void HearRefused(const std::string& source)
    {
        auto frame = FrameOf(source + ">APRS,Q0OWN,AB99:hello");
        frame[frame.find("\x84\x72")] = '-' * 2; // the B before a 9
        main.SoundSoc.Arrived(frame);
    }

    List& list = halvern.NoticesFrm.NoticeLst;
};

TEST_F(Notices, StandOnceWithHowOftenWhenAndAboutWhom)
{
    station.Hear("Q1CAR>APRS:!4049.14N/07308.41W>");
    auto& stations = halvern.PositionFrm.PosLst;
    stations.Replace(stations.Count() - 1, WithMark(stations.Row(stations.Count() - 1), mark::Alarm));
    Said();
    HearRefused("Q1ABC");
    station.time.Wait(30000);
    HearRefused("Q2ABC-7");
    station.Hear("Q1CAR>APRS:!4149.14N/07308.41W>");
    EXPECT_THAT(Said(), Contains(StartsWith("message")).Times(3)) << "the console is told each time";
    EXPECT_THAT(
        Rows(list),
        ElementsAre(StartsWith("2000-01-01 00:00:30 2      Q2ABC-7            ! One or more of your Digipeater SSID"),
                    "2000-01-01 00:00:30 1      Q1CAR                Alarmed Station has moved."));
    EXPECT_THAT(Raw(), Contains(StartsWith("Q2ABC-7>APRS,Q0OWN*,A")));
    EXPECT_TRUE(halvern.NoticesFrm.Visible());

    main.PortTnc.OnClick = [&] { halvern.Tell(Icon::Critical, "the operator's own"); };
    halvern.All.Dispatch(main.PortTnc, [&] { main.PortTnc.Click(); });
    EXPECT_THAT(Rows(list), SizeIs(2)) << "he has seen the box";
    main.Timer2.OnTick = [&] { main.PortTnc.Click(); };
    halvern.All.Dispatch(main.Timer2, [&] { main.Timer2.Tick(); });
    EXPECT_THAT(Rows(list).back(), HasSubstr("Beacon timer       ! the operator's own"));
}

TEST_F(Notices, AreCountedWhileTheirWindowIsClosedAndKeptWithinBounds)
{
    const auto note = [&](const std::string& text) { halvern.Note({"port", text}); };
    note("line\r\nline\rline " + std::string(5000, 'x'));
    EXPECT_THAT(list.Row(0), HasSubstr(" i line line line x"));
    EXPECT_LT(list.Row(0).size(), 1100u);
    EXPECT_EQ(halvern.NoticesFrm.NoticeTxt.Text().substr(0, 15), "line line line ");
    EXPECT_EQ(main.NoticesCmd.Caption(), "1 notice");
    main.NoticesCmd.Click();
    EXPECT_FALSE(halvern.NoticesFrm.Visible());
    note("two");
    station.time.Wait(1000);
    for (int i = 0; i < 299; ++i) note("text " + std::to_string(i));
    EXPECT_EQ(main.NoticesCmd.Caption(), "300 notices, 300 new");
    EXPECT_THAT(list.Row(0), HasSubstr("i two")) << "the one told longest ago made room";
    EXPECT_FALSE(halvern.NoticesFrm.Visible()) << "it comes up by itself for the first alone";
    main.NoticesMenu.Click();
    EXPECT_EQ(main.NoticesCmd.Caption(), "300 notices");
    halvern.NoticesFrm.ClearCmd.Click();
    EXPECT_EQ(list.Count(), 0);
    EXPECT_FALSE(main.NoticesCmd.Visible());
}

} // namespace
} // namespace halvern::test
