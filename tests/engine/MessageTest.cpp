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
    void HearMessage(const std::string& from, const std::string& to, const std::string& text,
                     std::string_view tag = "TNC")
    {
        station.Hear(from + ">APRS,WIDE1-1::" + CallField(to) + ":" + text, tag);
    }
};

TEST_F(Messages, AMessageToUsIsFiledOnceAndAckedEachTimeByItsOwnRoad)
{
    const std::string ack = "Q0OWN>APHV01::Q1ABC    :ack12", net = "Q0OWN>APHV01,TCPIP*::Q1ABC    :ack12\r\n";
    HearMessage("Q1ABC", "Q0OWN", "Hello{12");
    EXPECT_THAT(Air(), ElementsAre("radio " + ack));
    EXPECT_EQ(form.Caption(), "New Message!");
    EXPECT_THAT(Said(), ElementsAre("bell"));
    const std::pair<const char*, Strings> roads[] = {{"SOUND", {"sound " + ack}},
                                                     {"TCPIP", {"internet " + net}},
                                                     {"PSK63", {"psk63 " + ack + "\r\n"}},
                                                     {"IMPORT", {}}};
    for (const auto& [tag, sent] : roads) {
        HearMessage("Q1ABC", "q0own", "hello{12", tag);
        EXPECT_EQ(Air(), sent);
    }
    EXPECT_THAT(Rows(form.MsgToYouLst), ElementsAre("Q1ABC>Q0OWN:12.Hello"));
    EXPECT_THAT(Said(), IsEmpty());
    HearMessage("Q1ABC", "Q0OWN", "No number");
    HearMessage("Q2ABC", "Q0OWN", "?APRSP{12");
    EXPECT_THAT(Rows(form.MsgToYouLst),
                ElementsAre("Q1ABC>Q0OWN:12.Hello", "Q1ABC>Q0OWN:00.No number", "Q2ABC>Q0OWN:12.?APRSP"));
    EXPECT_THAT(Air(), ElementsAre("radio Q0OWN>APHV01::Q2ABC    :ack12"));
    EXPECT_EQ(form.MsgToYouLst.Selected(), 2);
}

TEST_F(Messages, TheMailPathCarriesTheAckAndPlaybackSendsNone)
{
    form.MailUnPath.Select(1);
    HearMessage("Q1ABC", "Q0OWN", "Hello{12}x");
    EXPECT_THAT(Air(), ElementsAre("radio Q0OWN>APHV01,WIDE2-2::Q1ABC    :ack12}x"));
    setUp.Psk63PortTxt.SetText("3122"); // marks, and none while a packet is coming in
    HearMessage("Q1ABC", "Q0OWN", "Hello{1", "PSK63");
    EXPECT_THAT(Air(), ElementsAre("psk63 " + Marked("SSSSSQ0OWN>APHV01::Q1ABC    :ack1EEEEE"), "psk63 \x1aTX\x1b"));
    halvern.Engine.Psk63Busy = true;
    HearMessage("Q1ABC", "Q0OWN", "Hello{1", "PSK63");
    halvern.Engine.ReviewMode = true;
    HearMessage("Q2ABC", "Q0OWN", "Played back{1");
    EXPECT_THAT(Air(), IsEmpty());
    EXPECT_EQ(form.MsgToYouLst.Count(), 3);
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
    EXPECT_THAT(Air(), IsEmpty());
}

TEST_F(Messages, BulletinsStandBySourceAndInTheirOrder)
{
    const char* const heard[][3] = {{"Q1ABC", "BLN3", "three"},      {"Q2ABC", "BLNB", "b"},
                                    {"Q1ABC", "BLN1", "one"},        {"Q1ABC", "BLN12", "twelve"},
                                    {"Q2ABC", "BLNA", "a"},          {"Q1ABC", "BLNQ", "letter"},
                                    {"Q1ABC", "BLN3", "three anew"}, {"Q1ABC", "bln3", "THREE ANEW"}};
    for (const auto& [from, to, text] : heard) HearMessage(from, to, text);
    HearMessage("Q9ABC", "BLN", "no identifier");
    station.Hear("Q9ABC>APRS,WIDE1-1::Q0OWN no second colon");
    EXPECT_EQ(halvern.HeardFrm.HeardGrid.FindRow("Q9ABC", 1), NotFound) << "no messages";
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
    Strings Answers(const std::string& text, const std::string& from = "Q1ABC")
    {
        HearMessage(from, "Q0OWN", text);
        return Air();
    }
    const std::string radio = "radio Q0OWN>APHV01,WIDE2-2:", psk63 = "psk63 Q0OWN>APHV01:", end = "\r\n";
};

TEST_F(Queries, AreAnsweredAtOnceOnTheRadioAndOnPsk63)
{
    const std::string place = "=4049.14N/07308.41W-PHG5130 own", status = ">here";
    station.Hear("Q1ABC>APRS,WIDE1-1:?APRS? and more");
    EXPECT_THAT(Air(), ElementsAre(radio + place, radio + status, psk63 + place + end, psk63 + status + end));
    EXPECT_THAT(Answers("?APRSP"), ElementsAre(radio + place, psk63 + place + end));
    EXPECT_THAT(Answers("?APRSS"), ElementsAre(radio + status, psk63 + status + end));
    EXPECT_THAT(Rows(form.MsgToYouLst), IsEmpty());
    EXPECT_THAT(Rows(halvern.StatusFrm.StatusLst), IsEmpty());
    station.Hear("Q1ABC>APRS,WIDE1-1:?WX?");
    for (const auto* silent : {"?APRSO", "?aprsp", "?IGATE", "?APRSD", "?APRST", "?PING?"})
        EXPECT_THAT(Answers(silent), IsEmpty());
    main.Psk63Soc.Disconnect();
    setUp.PhgDirLst.Select(3);
    setUp.OverlayChar = "7";
    EXPECT_THAT(Answers("?APRSP"), ElementsAre(radio + "=4049.14N707308.41W-PHG0003 own"));
    halvern.Engine.GpsPositionOn = true;
    EXPECT_THAT(Answers("?APRSP"), ElementsAre(radio)) << "a GPS gives it";
}

TEST_F(Queries, TellWhoWasHeardAndHowOftenAndByWhichPath)
{
    EXPECT_THAT(Answers("?APRSH Q2ABC"), IsEmpty()) << "nobody but ourselves in the grid yet";
    station.Hear("Q1ABC>APRS,WIDE1-1:>direct");
    station.Hear("Q2ABC>APRS,Q3DIG*:>digipeated");
    EXPECT_THAT(Answers("?APRSH Q9ABC"), Contains(radio + ":Q1ABC    :Hrd= 0"));
    const auto hours = Answers("?APRSH Q2ABC please");
    EXPECT_THAT(hours[0], StartsWith(radio + ":Q1ABC    :Hrd= "));
    EXPECT_EQ(std::ranges::count(hours[0], '1'), 3) << "the destination, the caller, and one hour";
    const std::string direct = ":Q1ABC    :Dir= Q1ABC       ";
    EXPECT_THAT(Answers("?APRSD", "q1abc"), ElementsAre(radio + direct, psk63 + direct + end));
    EXPECT_THAT(Answers("?PING?", "Q2ABC"), ElementsAre(radio + ":Q2ABC    :Q2ABC>Q3DIG*"));
    // what waits for the asking station is sent again
    form.OutMsg.Add(":Q1ABC    unproto APHV01 via NONE:Hello{12");
    form.Timer1.Start(60000);
    Answers("?APRSM", "Q2ABC");
    EXPECT_EQ(form.Timer1.Interval(), 60000);
    Answers("?APRSM");
    EXPECT_EQ(form.Timer1.Interval(), 1);
}

TEST_F(Messages, AKilledObjectStaysUnseenAndComesBack)
{
    const std::string live = "Q1ABC>APRS,WIDE1-1:;LEADER   *092345z4903.50N/07201.75W>088/036";
    station.Hear(live);
    station.Hear("Q1ABC>APRS,WIDE1-1:;LEADER   _092345z4903.50N/07201.75W>088/036");
    const auto& places = halvern.PositionFrm.PosLst;
    EXPECT_THAT(Rows(places), ElementsAre(StartsWith("LEADER   X;")));
    EXPECT_FALSE(halvern.MapFrm.SymPic(0).visible);
    Said();
    station.Hear(live);
    EXPECT_THAT(Rows(places), ElementsAre(StartsWith("LEADER    ;")));
    EXPECT_THAT(Said(), ElementsAre("bell"));
}

} // namespace
} // namespace halvern::test
