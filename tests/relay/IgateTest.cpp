// SPDX-License-Identifier: GPL-3.0-or-later
#include "state/Rows.h"
#include "support/StationTest.h"

namespace halvern::test {
namespace {

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

struct RadioToInternet : GateTest {};

TEST_F(RadioToInternet, PassesLinesAsTheyStandAndTellsWhyNot)
{
    const std::pair<const char*, const char*> cases[] = {
        {"Q0AAA>APRS:>x", "passed"},
        {"Q0AAA>APRS,WIDE1-1,Q0DIG*,WIDE2-1:!4049.14N/07308.41W-a\x80\xFF{|}~\xC0\xDB ", "passed"},
        {"Q0AAA>S32U6T,Q0DIG*:`(_fn\"Oj/", "passed"},
        {"Q0AAA>NOKEY,RFONLY:>x", "passed"}, // the server refuses those of itself
        {"Q0AAA>APRS,NOGATE:>x", "passed"},
        {"Q0AAA>APRS::Q0BBB    :hello{1", "passed"}, // the addressee has not been heard
        {"Q0BBB>APRS,Q0DIG*:>x", "passed"},
        {"Q0AAA>APRS::Q0BBB    :hello{1", "passed"}, // nor now direct
        {"Q0BBB>APRS:>x", "passed"},
        {"Q0AAA>APRS::Q0BBB    :hello{1", "addressee is heard direct on radio"},
        {"Q0CCC>APRS,-5:>x", "passed"},
        {"Q0AAA>APRS::Q0CCC    :hello{1", "addressee's hops are not known"},
        {"Q0AAA>APRS::short", "passed"},
        {"Q0OWN>APRS,Q0DIG*:>x", "own packet"},
        {"Q0AAA>APRS,TCPIP,Q0DIG*:>x", "path says TCPIP"},
        {"Q0AAA>APRS,TCPXX*:>x", "path says TCPXX"},
        {"Q0NEW>APRS:>about qAR and others", "text says qAR"},
        {"Q0AAA>APRS:?WX?", "query"},
        {"Q0GAT>NOKEY:}Q0AAA>APRS,TCPIP,Q0GAT*:>x", "third party"},
        {"Q0GAT>APRS:}Q0AAA>APRS,TCPIP,Q0GAT*:>x", "path says TCPIP"}, // the engine has unwrapped it
        {"Q0AAA>APRS:", ""},                                           // no packet
    };
    for (const auto& [line, outcome] : cases) {
        station.HearOnTnc(line);
        const bool passed = std::string_view(outcome) == "passed";
        EXPECT_EQ(station.SentBy(main.InternetSoc), passed ? Strings{std::string(line) + "\r\n"} : Strings{}) << line;
        EXPECT_THAT(station.SentByRadio(), IsEmpty()) << line;
        EXPECT_EQ(Outcome(), outcome) << line;
    }
    EXPECT_EQ(main.HeardOnRfLst.Find("Q0NEW    "), NotFound) << "what is not gated is not heard";
    station.ports.SocketOf(main.InternetSoc)->HangUp();
    station.HearOnTnc("Q0AAA>APRS:>x");
    EXPECT_EQ(Outcome(), "no port is open to send it by");
    halvern.Engine.IgateOn = false;
    station.HearOnTnc("Q0AAA>APRS:>x");
    EXPECT_EQ(Outcome(), "");
}

TEST_F(RadioToInternet, KeepsTheFewestHopsOfEachStation)
{
    const std::pair<const char*, const char*> cases[] = {
        {",-5", "  100"},    {",Q0DIG*,WIDE2-1", "  2"}, {",Q0DIG*,Q0DIX*,WIDE3", "  2"}, {",Q0DIG*", "  1"},
        {",WIDE2-1", "  1"}, {",Q0DIG", " 0"},           {",Q0DIG*,WIDE2-1", " 0"},       {"", " 0"}};
    for (const auto& [path, hops] : cases) {
        station.HearOnTnc(std::string("Q0AAA-12>APRS") + path + ":>x");
        EXPECT_THAT(Rows(main.HeardOnRfLst), ElementsAre(std::string("Q0AAA-12") + hops)) << path;
    }
    station.HearOnTnc("Q0BBB>APRS:>x");
    EXPECT_THAT(Rows(main.HeardOnRfLst), ElementsAre("Q0AAA-12 0", "Q0BBB    0"));
}

/// One station near, one a hop away, one two hops, one unreadable.
struct InternetToRadio : GateTest {
    InternetToRadio()
    {
        for (const char* heard :
             {"Q0NIL>APRS:>x", "Q0ONE>APRS,Q0DIG*:>x", "Q0TWO>APRS,Q0DIG*,WIDE2-1:>x", "Q0BAD>APRS,-5:>x"})
            station.HearOnTnc(heard);
        station.SentBy(main.InternetSoc);
        seen = main.DecisionLst.Count();
    }
};

TEST_F(InternetToRadio, PassesMessagesBuddiesAndWeatherCalls)
{
    setUp.IgateHopOpt.Select(1);
    setUp.UnPath.Preselect(1);
    for (const char* buddy : {"Q0BUD", "NINELONG1", "FAIR"}) setUp.IgateBudsCombo.Add(buddy);
    for (const char* call : {"NWS", "WXS"}) setUp.WxMessCombo.Add(call);
    const std::string message = ":hello{1";
    // from, information, the path by which it goes out on radio if it does, outcome
    const std::tuple<std::string, std::string, const char*, const char*> cases[] = {
        {"Q0FAR>APRS", "::Q0NIL    :hello{1", ",WIDE2-2", "passed"},
        {"Q0FAR>APRS", "::Q0ONE    :hello{1", ",WIDE2-2", "passed"},
        {"Q0FAR>APRS", "::Q0TWO    :hello{1", nullptr, "too many hops: 2, limit 1"},
        {"Q0FAR>APRS", "::Q0BAD    :hello{1", nullptr, "addressee's hops are not known"},
        {"Q0FAR>APRS", "::Q0NEW    :hello{1", nullptr, "addressee not heard on radio"},
        {"Q0FAR>APRS", "::Q0ONE:", nullptr, "addressee not heard on radio"},
        {"Q0ONE>APRS", "::Q0NIL    :hello{1", ",WIDE2-2", "passed"},
        {"Q0NIL>APRS", "::Q0ONE    :hello{1", nullptr, "sender is heard direct on radio"},
        {"Q0OWN>APRS", "::Q0ONE    :hello{1", nullptr, "own packet"},
        {"XNWSX>APRS", "::ALL      :storm", ",WIDE2-2", "passed: weather call"},
        {"XXNWS>APRS", "::Q0TWO    :storm", ",WIDE2-2", "passed: weather call"},
        {"Q0BUD>APU25N", ":!4903.50N/07201.75W-x", "", "passed: buddy"},
        {"Q0BUD>APU25N", ":/092345z4903.50N/07201.75W-", "", "passed: buddy"},
        {"Q0BUD>APU25N", ":!!005B03840290", nullptr, "kind of packet that stays on the Internet"},
        {"Q0BUD-1>APU25N", ":=4903.50N/07201.75W-x", nullptr, "not from a buddy"},
        {"Q0BUD>APU25N", ":>status", nullptr, "kind of packet that stays on the Internet"},
        {"Q0XXX>APU25N", ":;NINELONG1*092345z4903.50N/07201.75W>", "", "passed: buddy"},
        // an object's name is all its nine columns, and so is the buddy's
        {"Q0XXX>APU25N", ":;FAIR     *092345z4903.50N/07201.75W>", nullptr, "not from a buddy"},
    };
    for (const auto& [from, info, path, outcome] : cases) {
        HearFromServer(from + ",TCPIP*,qAC,T2X" + info);
        const auto source = from.substr(0, from.find('>'));
        const auto sent = path == nullptr
                              ? Strings{}
                              : Strings{std::string("Q0OWN>APRS") + path + ":}" + source + ">APRS,TCPIP,Q0OWN*" + info};
        EXPECT_EQ(station.SentByRadio(), sent) << from << info;
        EXPECT_EQ(Outcome(), outcome) << from << info;
        EXPECT_THAT(station.SentBy(main.InternetSoc), IsEmpty());
    }
    setUp.IgateBudsCombo.Add("Q0MIC");
    HearFromServer("Q0MIC>S32U6T,TCPIP*,qAC,T2X:`(_fn\"Oj/");
    EXPECT_THAT(station.SentByRadio(), ElementsAre("Q0OWN>APRS:}Q0MIC>S32U6T,TCPIP,Q0OWN*:`(_fn\"Oj/"));
    // by the sender's right and by the addressee's: it goes out twice, and the list says so
    HearFromServer("XXNWS>APRS,TCPIP*::Q0ONE    :storm");
    EXPECT_THAT(station.SentByRadio(), SizeIs(2));
    HearFromServer("# a comment of the server: no > packet");
    main.PortTnc.Click();
    HearFromServer("Q0FAR>APRS,TCPIP*::Q0NIL    :hello{1");
    EXPECT_EQ(Outcome(), "no port is open to send it by");
    setUp.IgateBIOpt.Select(0);
    HearFromServer("Q0FAR>APRS,TCPIP*::Q0NIL    :hello{1");
    EXPECT_EQ(Outcome(), "");
}

TEST_F(InternetToRadio, SendsThePositionOfTheSenderBehindTheMessage)
{
    for (const std::string heard : {"APRS,TCPIP*:=4903.50N/07201.75W-x", "APRS,TCPIP*:!4903.50N/07201.75W-x",
                                    "APRS,TCPIP*:/092345z4903.50N/07201.75W-x",
                                    "APRS,TCPIP*:@092345z4903.50N/07201.75W-x", "S32U6T,TCPIP*:`(_fn\"Oj/"}) {
        HearFromServer("Q0FAR>" + heard);
        HearFromServer("Q0FAR>APRS,TCPIP*::Q0NIL    :hello{1");
        const std::string head = "Q0OWN>APRS:}Q0FAR>APRS,TCPIP,Q0OWN*:";
        Strings sent{head + ":Q0NIL    :hello{1"};
        if (heard[0] == 'A') sent.push_back(head + heard.substr(12)); // not a Mic-E report
        EXPECT_EQ(station.SentByRadio(), sent) << heard;
    }
}

struct MessageHold : InternetToRadio {
    MessageHold() { setUp.IgateTimeLbl.SetNumber(5); }
    void Message(const std::string& text) { HearFromServer("Q0FAR>APRS,TCPIP*::Q0NIL    :" + text); }
    /// The same message as another gate puts it on radio. Every third-party row in the raw store counts.
    void OtherGate(const std::string& text, const std::string& dest = "APRS")
    {
        station.HearOnTnc("Q0GAT>" + dest + ":}Q0FAR>APRS,TCPIP,Q0GAT*::Q0NIL    :" + text);
        Outcome();
    }
    std::size_t SentAfter(int milliseconds)
    {
        station.time.Wait(milliseconds);
        return station.SentByRadio().size();
    }
};

TEST_F(MessageHold, EndsWithTheMessageAtItsLastSecond)
{
    Message("hello{1");
    EXPECT_EQ(Outcome(), "held");
    EXPECT_EQ(SentAfter(4999), 0u);
    EXPECT_EQ(SentAfter(1), 1u);
    EXPECT_EQ(Outcome(), "passed after the hold");
    EXPECT_EQ(SentAfter(60000), 0u);
    // a newer message takes the place, and the seconds go on
    Message("hello{2");
    station.time.Wait(3000);
    Message("hello{3");
    EXPECT_EQ(SentAfter(2000), 1u);
    EXPECT_THAT(Rows(main.DecisionLst).end()[-3], HasSubstr("a newer message took its place"));
}

TEST_F(MessageHold, EndsInSilenceWhenAnotherGateWasFirst)
{
    for (const std::string dest : {"APRS", "NOKEY"}) { // the second is not unwrapped
        main.IgateHoldCount = 0;
        Message(dest + "{1");
        station.time.Wait(2000);
        OtherGate(dest + "{2", dest);
        station.time.Wait(1000);
        EXPECT_TRUE(main.IgateMessHold.Running()) << "another message";
        OtherGate(dest + "{1", dest);
        EXPECT_EQ(SentAfter(60000), 0u);
        EXPECT_EQ(Outcome(), "another gate was first");
        EXPECT_EQ(main.IgMesSaveTxt.Text(), "");
        EXPECT_EQ(main.IgateHoldCount, 4) << "the next hold is that much shorter";
    }
    Message("hello{9");
    EXPECT_EQ(SentAfter(1000), 1u);
}

TEST_F(MessageHold, LooksBackTenRowsAndNotAtTheMessageItself)
{
    for (const int rows : {9, 10}) {
        main.IgateHoldCount = 0;
        const auto text = "hello{" + std::to_string(rows);
        OtherGate(text);
        Message(text);
        for (int i = 1; i < rows; ++i) station.Hear("Q0XXX>APRS:>" + std::to_string(i), "TCPIP");
        EXPECT_EQ(SentAfter(5000), rows == 9 ? 0u : 1u);
    }
}

struct DecisionList : GateTest {};

TEST_F(DecisionList, KeepsTheNewestAndShowsWhatTheFilterLetsIn)
{
    station.time.SetUtc({2026, 5, 9, 7, 5, 3});
    station.HearOnTnc("Q0AAA>APRS,Q0DIG::Q0BBB-12 :hello");
    HearFromServer("Q0AAA>APRS,TCPIP*:;OBJ      *092345z4903.50N/07201.75W>");
    EXPECT_THAT(Rows(main.DecisionLst),
                ElementsAre("09/07:05:03 repeat      Q0AAA     Q0BBB-12  path does not name this station",
                            "09/07:05:03 to Internet Q0AAA     Q0BBB-12  passed",
                            "09/07:05:03 to radio    Q0AAA     OBJ       not from a buddy"));
    auto& filter = halvern.GateFrm.CallTxt;
    const auto& shown = halvern.GateFrm.GateLst;
    EXPECT_EQ(Rows(shown), Rows(main.DecisionLst));
    filter.SetText(" bbb");
    EXPECT_THAT(Rows(shown), SizeIs(2));
    for (int i = 0; i < 2500; ++i) HearFromServer("Q0" + std::to_string(i) + ">APRS,TCPIP*:>x");
    EXPECT_THAT(Rows(shown), SizeIs(2));
    filter.SetText("");
    EXPECT_LE(shown.Count(), 2000);
    EXPECT_GE(shown.Count(), 1900);
    EXPECT_EQ(Rows(shown), Rows(main.DecisionLst));
    EXPECT_THAT(shown.Row(shown.Count() - 1), HasSubstr(" Q02499 "));
}

} // namespace
} // namespace halvern::test
