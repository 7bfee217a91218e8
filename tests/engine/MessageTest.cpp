// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/Bulletins.h"
#include "support/StationTest.h"

namespace halvern::test {
namespace {

/// A station with every port open, so that an answer can take any road.
struct Messages : StationTest {
    Messages()
    {
        station.time.SetUtc({2026, 11, 22, 9, 8, 7});
        main.PortTnc.SetChecked(true);
        main.MSComm1.Open();
        for (Socket* socket : {&main.SoundSoc, &main.InternetSoc, &main.Psk63Soc}) socket->Connect();
    }
    Strings Sent(const Port& port) { return station.SentBy(port); }
    /// What a KISS port sent, as text lines.
    Strings SentFrames(const Port& port)
    {
        auto lines = Sent(port);
        for (auto& line : lines) line = LineOfFrame(line);
        return lines;
    }
    bool NothingSent()
    {
        return Sent(main.MSComm1).empty() && Sent(main.SoundSoc).empty() && Sent(main.InternetSoc).empty() &&
               Sent(main.Psk63Soc).empty();
    }
    void HearMessage(const std::string& from, const std::string& to, const std::string& text,
                     std::string_view tag = "TNC")
    {
        station.Hear(from + ">APRS,WIDE1-1::" + CallField(to) + ":" + text, tag);
    }
};

TEST_F(Messages, AMessageToUsIsFiledOnceAndAckedEachTimeByItsOwnRoad)
{
    HearMessage("Q1ABC", "Q0OWN", "Hello{12");
    EXPECT_THAT(SentFrames(main.MSComm1), ElementsAre("Q0OWN>APHV01::Q1ABC    :ack12"));
    EXPECT_EQ(form.Caption(), "New Message!");
    EXPECT_THAT(Said(), ElementsAre("bell"));
    HearMessage("Q1ABC", "q0own", "hello{12", "SOUND");
    EXPECT_THAT(SentFrames(main.SoundSoc), ElementsAre("Q0OWN>APHV01::Q1ABC    :ack12"));
    HearMessage("Q1ABC", "Q0OWN", "Hello{12", "TCPIP");
    EXPECT_THAT(Sent(main.InternetSoc), ElementsAre("Q0OWN>APHV01,TCPIP*::Q1ABC    :ack12\r\n"));
    HearMessage("Q1ABC", "Q0OWN", "Hello{12", "PSK63");
    EXPECT_THAT(Sent(main.Psk63Soc), ElementsAre("Q0OWN>APHV01::Q1ABC    :ack12\r\n"));
    HearMessage("Q1ABC", "Q0OWN", "Hello{12", "IMPORT");
    EXPECT_TRUE(NothingSent());
    EXPECT_THAT(Rows(form.MsgToYouLst), ElementsAre("Q1ABC>Q0OWN:12.Hello"));
    EXPECT_THAT(Said(), IsEmpty());
}

TEST_F(Messages, TheMailPathCarriesTheAckAndPlaybackSendsNone)
{
    form.MailUnPath.Select(1);
    HearMessage("Q1ABC", "Q0OWN", "Hello{12}x");
    EXPECT_THAT(SentFrames(main.MSComm1), ElementsAre("Q0OWN>APHV01,WIDE2-2::Q1ABC    :ack12}x"));
    halvern.Engine.ReviewMode = true;
    HearMessage("Q2ABC", "Q0OWN", "Played back{1");
    EXPECT_TRUE(NothingSent());
    EXPECT_EQ(form.MsgToYouLst.Count(), 2);
}

TEST_F(Messages, InTheDialectOfMarksAnAckIsMarkedUnlessAPacketIsComingIn)
{
    setUp.Psk63PortTxt.SetText("3122");
    HearMessage("Q1ABC", "Q0OWN", "Hello{1", "PSK63");
    EXPECT_THAT(Sent(main.Psk63Soc), ElementsAre(Marked("SSSSSQ0OWN>APHV01::Q1ABC    :ack1EEEEE"), "\x1aTX\x1b"));
    halvern.Engine.Psk63Busy = true;
    HearMessage("Q1ABC", "Q0OWN", "Hello{1", "PSK63");
    EXPECT_THAT(Sent(main.Psk63Soc), IsEmpty());
}

TEST_F(Messages, WithoutANumberThereIsNoAck)
{
    HearMessage("Q1ABC", "Q0OWN", "No number");
    HearMessage("Q1ABC", "Q0OWN", "?APRSP{12");
    EXPECT_THAT(Rows(form.MsgToYouLst), ElementsAre("Q1ABC>Q0OWN:00.No number", "Q1ABC>Q0OWN:12.?APRSP"));
    EXPECT_THAT(SentFrames(main.MSComm1), ElementsAre("Q0OWN>APHV01::Q1ABC    :ack12"));
    EXPECT_EQ(form.MsgToYouLst.Selected(), 1);
}

TEST_F(Messages, AnotherSsidOfOurCallIsFiledAndNeitherAckedNorRung)
{
    HearMessage("Q1ABC", "Q0OWN-5", "For the car{3");
    HearMessage("Q1ABC", "Q0OWN-5", "For the car{3");
    HearMessage("Q0OWN", "Q0OWN-5", "From ourselves{4");
    EXPECT_THAT(Rows(form.MsgToYouLst), ElementsAre("Q1ABC>Q0OWN-5:For the car{3"));
    EXPECT_TRUE(NothingSent());
    EXPECT_THAT(Said(), IsEmpty());
}

TEST_F(Messages, TrafficBetweenOthersLeavesItsAcksOut)
{
    HearMessage("Q1ABC", "Q2ABC", "Hello{1");
    HearMessage("Q1ABC", "Q2ABC", "HELLO{1");
    HearMessage("Q2ABC", "Q1ABC", "ack1");
    EXPECT_THAT(Rows(form.TrafficLst), ElementsAre("Q1ABC>Q2ABC:  Hello{1"));
    setUp.MsgGroupLst.Add("CQ");
    HearMessage("Q1ABC", "CQ", "to everybody");
    EXPECT_THAT(Rows(form.MsgToYouLst), ElementsAre("Q1ABC>CQ:  to everybody"));
    EXPECT_EQ(form.Caption(), "New Message!");
    EXPECT_TRUE(NothingSent());
}

TEST_F(Messages, AMessageThatIsNoMessageLeavesOnlyItsRawRow)
{
    station.Hear("Q1ABC>APRS,WIDE1-1::Q0OWN no second colon");
    HearMessage("Q1ABC", "BLN", "no identifier");
    EXPECT_EQ(halvern.HeardFrm.HeardGrid.FindRow("Q1ABC", 1), NotFound);
    EXPECT_THAT(Rows(form.BullLst), IsEmpty());
}

TEST_F(Messages, BulletinsStandBySourceAndInTheirOrder)
{
    const char* const heard[][3] = {{"Q1ABC", "BLN3", "three"},      {"Q2ABC", "BLNB", "b"},
                                    {"Q1ABC", "BLN1", "one"},        {"Q1ABC", "BLN12", "twelve"},
                                    {"Q2ABC", "BLNA", "a"},          {"Q1ABC", "BLNQ", "letter"},
                                    {"Q1ABC", "BLN3", "three anew"}, {"Q1ABC", "bln3", "THREE ANEW"}};
    for (const auto& [from, to, text] : heard) HearMessage(from, to, text);
    EXPECT_THAT(Rows(form.BullLst), ElementsAre("Q1ABC>BLN1:one", "Q1ABC>BLN3:three anew", "Q1ABC>BLN12:twelve",
                                                "Q1ABC>BLNQ:letter", "Q2ABC>BLNA:a", "Q2ABC>BLNB:b"));
    EXPECT_EQ(form.Caption(), "New Bulletin!");
    EXPECT_EQ(Said().size(), 7u);
}

struct Queries : Messages {
    Queries()
    {
        setUp.UnPath.Select(1);
        main.SoundSoc.Disconnect();
        main.InternetSoc.Disconnect();
    }
    const std::string position = "Q0OWN>APHV01,WIDE2-2:=4049.14N/07308.41W-PHG5130 own";
    const std::string status = "Q0OWN>APHV01,WIDE2-2:>here";
};

TEST_F(Queries, AreAnsweredAtOnceOnTheRadioAndOnPsk63)
{
    station.Hear("Q1ABC>APRS,WIDE1-1:?APRS? and more");
    EXPECT_THAT(SentFrames(main.MSComm1), ElementsAre(position, status));
    EXPECT_THAT(Sent(main.Psk63Soc),
                ElementsAre("Q0OWN>APHV01:=4049.14N/07308.41W-PHG5130 own\r\n", "Q0OWN>APHV01:>here\r\n"));
    HearMessage("Q1ABC", "Q0OWN", "?APRSP");
    EXPECT_THAT(SentFrames(main.MSComm1), ElementsAre(position));
    HearMessage("Q1ABC", "Q0OWN", "?APRSS");
    EXPECT_THAT(SentFrames(main.MSComm1), ElementsAre(status));
    EXPECT_EQ(Sent(main.Psk63Soc).size(), 2u);
    EXPECT_THAT(Rows(form.MsgToYouLst), IsEmpty());
    EXPECT_THAT(Rows(halvern.StatusFrm.StatusLst), IsEmpty());
    for (const auto* silent : {"?APRSO", "?aprsp", "?APRSM", "?IGATE", "?APRSD", "?APRST", "?PING?"})
        HearMessage("Q1ABC", "Q0OWN", silent);
    station.Hear("Q1ABC>APRS,WIDE1-1:?WX?");
    EXPECT_TRUE(NothingSent());
}

TEST_F(Queries, AnswerThePhgOfTheSettingsAndNoPositionWhileAGpsGivesIt)
{
    setUp.PhgDirLst.Select(3);
    setUp.OverlayChar = "7";
    station.Hear("Q1ABC>APRS,WIDE1-1:?APRSP");
    EXPECT_THAT(SentFrames(main.MSComm1), ElementsAre("Q0OWN>APHV01,WIDE2-2:=4049.14N707308.41W-PHG0003 own"));
    halvern.Engine.GpsPositionOn = true;
    station.Hear("Q1ABC>APRS,WIDE1-1:?APRSP");
    EXPECT_THAT(SentFrames(main.MSComm1), ElementsAre("Q0OWN>APHV01,WIDE2-2:"));
}

TEST_F(Queries, TellWhoIsHeardDirectAndByWhichPath)
{
    station.Hear("Q1ABC>APRS,WIDE1-1:>direct");
    station.Hear("Q2ABC>APRS,Q3DIG*:>digipeated");
    HearMessage("q1abc", "Q0OWN", "?APRSD");
    EXPECT_THAT(SentFrames(main.MSComm1), ElementsAre("Q0OWN>APHV01,WIDE2-2::Q1ABC    :Dir= Q1ABC       "));
    HearMessage("Q2ABC", "Q0OWN", "?PING?");
    EXPECT_THAT(SentFrames(main.MSComm1), ElementsAre("Q0OWN>APHV01,WIDE2-2::Q2ABC    :Q2ABC>Q3DIG*"));
    EXPECT_THAT(Sent(main.Psk63Soc), ElementsAre("Q0OWN>APHV01::Q1ABC    :Dir= Q1ABC       \r\n"));
}

TEST_F(Queries, TellHowOftenAStationWasHeardHourByHour)
{
    HearMessage("Q1ABC", "Q0OWN", "?APRSH Q2ABC");
    EXPECT_TRUE(NothingSent()) << "nobody but ourselves in the grid yet";
    station.Hear("Q2ABC>APRS,WIDE1-1:>x");
    HearMessage("Q1ABC", "Q0OWN", "?APRSH Q9ABC");
    EXPECT_THAT(SentFrames(main.MSComm1), ElementsAre("Q0OWN>APHV01,WIDE2-2::Q1ABC    :Hrd= 0"));
    HearMessage("Q1ABC", "Q0OWN", "?APRSH Q2ABC please");
    const auto answer = SentFrames(main.MSComm1);
    ASSERT_EQ(answer.size(), 1u);
    EXPECT_THAT(answer[0], StartsWith("Q0OWN>APHV01,WIDE2-2::Q1ABC    :Hrd= "));
    EXPECT_EQ(std::count(answer[0].begin(), answer[0].end(), '1'), 3) << "the destination, the caller, and one hour";
}

TEST_F(Queries, WhatWaitsForTheAskingStationIsSentAgain)
{
    form.OutMsg.Add(":Q1ABC    unproto APHV01 via NONE:Hello{12");
    form.Timer1.Start(60000);
    HearMessage("Q2ABC", "Q0OWN", "?APRSM");
    EXPECT_EQ(form.Timer1.Interval(), 60000);
    HearMessage("Q1ABC", "Q0OWN", "?APRSM");
    EXPECT_EQ(form.Timer1.Interval(), 1);
}

struct Objects : Messages {
    const std::string live = ";LEADER   *092345z4903.50N/07201.75W>088/036";
    Strings Positions() { return Rows(halvern.PositionFrm.PosLst); }
};

TEST_F(Objects, AKilledOneStaysUnseenAndComesBack)
{
    auto killed = live;
    killed[10] = '_';
    for (const auto& report : {live, killed}) station.Hear("Q1ABC>APRS,WIDE1-1:" + report);
    EXPECT_EQ(Positions()[0].substr(0, 11), "LEADER   X;");
    EXPECT_FALSE(halvern.MapFrm.SymPic(0).visible);
    Said();
    station.Hear("Q1ABC>APRS,WIDE1-1:" + live);
    EXPECT_THAT(Positions(), ElementsAre(StartsWith("LEADER    ;")));
    EXPECT_THAT(Said(), ElementsAre("bell"));
}

TEST_F(Objects, AnOwnOneIsGivenUpWhenAnotherStationSendsIt)
{
    main.MyObjectLst.Add(live + "|");
    main.MyObjectLst.Add(";OTHER    *092345z4903.50N/07201.75W>|");
    main.TransmitLst.Add("A");
    main.TransmitLst.Add("B");
    main.MyObjectTimer.Start(60000);
    main.KillMyObjectsMenu.SetEnabled(true);
    station.Hear("Q0OWN>APHV01,WIDE1-1:" + live, "OBJECT");
    EXPECT_EQ(main.MyObjectLst.Count(), 2);
    station.Hear("Q1ABC>APRS,WIDE1-1:" + live);
    EXPECT_THAT(Rows(main.TransmitLst), ElementsAre("B"));
    EXPECT_TRUE(main.MyObjectTimer.Running());
    station.Hear("Q1ABC>APRS,WIDE1-1:;OTHER    *092345z4903.50N/07201.75W>");
    EXPECT_EQ(main.MyObjectLst.Count(), 0);
    EXPECT_EQ(main.TransmitLst.Count(), 0);
    EXPECT_FALSE(main.MyObjectTimer.Running());
    EXPECT_FALSE(main.KillMyObjectsMenu.Enabled());
}

} // namespace
} // namespace halvern::test
