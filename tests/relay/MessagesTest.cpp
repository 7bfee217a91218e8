// SPDX-License-Identifier: GPL-3.0-or-later
#include "relay/Messages.h"

#include "protocol/OutMsg.h"
#include "support/StationTest.h"

namespace halvern::test {
namespace {

TEST(OutMsgRecords, AreReadAsTheyWereWritten)
{
    const MessageTrailer numbered{"{", ".", "12"}, plain{" ", " ", " "};
    const struct {
        std::string record;
        const char *path, *information, *text, *number;
    } cases[] = {
        {OutMsgRecord("Q0AAA-11", "APHV01", "WIDE2-2", "Hello", numbered), "WIDE2-2", ":Q0AAA-11 :Hello{12", "Hello",
         "12"},
        // another destination of own packets leaves the path in its columns
        {OutMsgRecord("Q0AAA", "SPC", "NONE", "a:b", numbered), "NONE", ":Q0AAA    :a:b{12", "a:b", "12"},
        {OutMsgRecord("Q0AAA", "TOOLONGONE", "TCPIP", "x{y", numbered), "TCPIP", ":Q0AAA    :x{y{12", "x", "y{12"},
        {OutMsgRecord("BLN1", "APHV01", "NONE", "all", plain), "NONE", ":BLN1     :all  ", "all  ", ""},
        // damaged ones: what is there
        {":Q0AAA    unproto APHV01 via WIDE2-2", "WIDE2-2", ":Q0AAA    ", "", ""},
        {":Q0", "", ":Q0", "", ""},
        {"", "", "", "", ""},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(OutMsgPath(each.record), each.path) << each.record;
        EXPECT_EQ(OutMsgInformation(each.record), each.information);
        EXPECT_EQ(OutMsgText(each.record), each.text);
        EXPECT_EQ(OutMsgNumber(each.record), each.number);
    }
    EXPECT_EQ(cases[0].record, ":Q0AAA-11 unproto APHV01 via WIDE2-2:Hello{12");
}

struct OwnMessages : StationTest {
    void OpenTnc()
    {
        station.OpenTnc();
        main.Timer2.Stop(); // the beacons are told elsewhere
    }
    void Type(const std::string& to, const std::string& text) { station.Type(to, text); }
    /// Seconds, from now, at which something goes out by radio.
    std::vector<int> SendTimes(int seconds)
    {
        std::vector<int> times;
        for (int second = 0; second <= seconds; ++second) {
            station.time.Wait(second == 0 ? 2 : 1000);
            if (!station.SentByRadio().empty()) times.push_back(second);
        }
        return times;
    }
    Strings Lines() const { return Rows(form.MsgToYouLst); }
};

TEST_F(OwnMessages, WaitForTheOlderOneToTheSameStation)
{
    OpenTnc();
    form.SetCaption("New Message!");
    Type("q0aaa", "one");
    EXPECT_EQ(form.Caption() + form.MsgTxt.Text(), "Message");
    EXPECT_EQ(form.MsgToYouLst.Selected(), 0);
    Type("Q0BBB", "other");
    Type("Q0AAA", "two");
    EXPECT_EQ(form.OutMsg.Row(0), ":Q0AAA    unproto APHV01 via NONE:two{3");
    station.time.Wait(1);
    EXPECT_THAT(station.SentByRadio(), ElementsAre("Q0OWN>APHV01::Q0AAA    :one{1", "Q0OWN>APHV01::Q0BBB    :other{2"));
    station.Hear("q0aaa>APRS::Q0OWN    :ack1");
    EXPECT_EQ(Lines()[0], "Q0OWN>Q0AAA:1.one MESSAGE RECEIVED");
    station.time.Wait(1);
    EXPECT_THAT(station.SentByRadio(), ElementsAre("Q0OWN>APHV01::Q0AAA    :two{3", "Q0OWN>APHV01::Q0BBB    :other{2"));
    station.Hear("Q0AAA>APRS::Q0OWN    :ack3");
    // with one left any ack is for it
    station.Hear("Q0CCC>APRS::Q0OWN    :ACK99");
    EXPECT_EQ(form.OutMsg.Count(), 0);
    EXPECT_FALSE(form.Timer1.Running());
    EXPECT_EQ(dynamic_cast<SimulatedSerial&>(*main.MSComm1.device).discards, 1);
}

TEST_F(OwnMessages, TakeTheRoadOnWhichTheStationWasHeard)
{
    const std::string byNet = "Q0OWN>APHV01,TCPIP*::Q0AAA    :hi{1\r\n";
    const struct {
        const char *heard, *mailPath;
        bool radio;
        Strings byRadio, byInternet;
    } cases[] = {{"Q0AAA     WIDE1*", "WIDE2-2", true, {"Q0OWN>APHV01,WIDE2-2::Q0AAA    :hi{1"}, {}},
                 {"Q0AAA     TCPIP*", "WIDE2-2", true, {}, {byNet}},
                 {"Q0AAA     TCPXX*", "NONE", true, {}, {byNet}},
                 {"Q0BBB     TCPIP*", "NONE", true, {"Q0OWN>APHV01::Q0AAA    :hi{1"}, {}},
                 {"Q0AAA     WIDE1*", "WIDE2-2", false, {}, {byNet}}};
    for (const auto& each : cases) {
        Station fresh;
        fresh.SetUp();
        fresh.halvern.DigiFrm.DigiLst.Add(each.heard);
        auto& main = fresh.halvern.ConMdiFrm;
        if (each.radio) fresh.OpenTnc();
        main.Timer2.Stop();
        main.InternetSoc.Connect();
        fresh.halvern.MessageFrm.MailUnPath.SetText(each.mailPath);
        fresh.Type("Q0AAA", "hi");
        fresh.time.Wait(1);
        EXPECT_EQ(fresh.SentByRadio(), each.byRadio);
        EXPECT_EQ(fresh.SentBy(main.InternetSoc), each.byInternet);
    }
}

TEST_F(OwnMessages, ToAllAndToGroupsHaveNoNumber)
{
    OpenTnc();
    setUp.MsgGroupLst.Add("CLUB");
    Type("BLN1", "all");
    Type("CLUB", "us\xC0");
    EXPECT_THAT(Lines(), ElementsAre("Q0OWN>BLN1:   all", "Q0OWN>CLUB:us\xC0"));
    EXPECT_THAT(station.SentByRadio(), ElementsAre("Q0OWN>APHV01::CLUB     :us\xC0\r\n"));
    EXPECT_EQ(SendTimes(100), (std::vector<int>{0, 4, 12, 28, 60}));
    EXPECT_THAT(Rows(form.OutMsg), ElementsAre(":BLN1     unproto APHV01 via NONE:all  "));
    EXPECT_EQ(form.MsgNumber, 2);
    // to a group by way of the Internet
    main.PortTnc.Click();
    main.InternetSoc.Connect();
    Type("CLUB", "net");
    EXPECT_THAT(station.SentBy(main.InternetSoc), ElementsAre("Q0OWN>APHV01,TCPIP*::CLUB     :net\r\n"));
}

TEST_F(OwnMessages, AreRefusedWithTheFirstReason)
{
    const auto refused = [&](int key, const std::string& text, const char* left) {
        form.MsgTxt.Press(key);
        EXPECT_THAT(Said(), ElementsAre("message none \"Halvern\" \"" + text + '"'));
        EXPECT_EQ(form.MsgTxt.Text(), left);
    };
    form.SendCallTxt.SetText("");
    form.MailUnPath.SetText("tcpip");
    form.MsgTxt.SetText("abc");
    form.MsgTxt.Press('x');
    EXPECT_THAT(Said(), ElementsAre(HasSubstr("TCPIP and TCPXX are not allowed as paths on RF.")));
    EXPECT_EQ(form.MailUnPath.Text() + form.MsgTxt.Text(), "NONE");
    refused('x', "Please Open a TNC Port or a Sound Card Port or an Internet Port or PSK63 port First.", "");

    main.Psk63Soc.Connect();
    form.MsgTxt.SetText("kept");
    refused(13, "Please change your Mail Path to PSK63. Or open another port besides the PSK63 Port.", "kept");
    OpenTnc();
    refused(13, "You First Have to type in a Callsign in the 'To Callsign Box'.", "");
    form.SendCallTxt.SetText("q0own");
    form.MailUnPath.SetText("");
    refused(13, "You have to chose a Mail Path first.", "");
    form.MailUnPath.SetText("NONE");
    refused(13, "You may not send a message to this station.", "");
    EXPECT_EQ(form.OutMsg.Count(), 0);
    Type("Q0OWN-9", "my car");
    EXPECT_EQ(form.OutMsg.Count(), 1);
}

TEST_F(OwnMessages, EndWithTheNumbers)
{
    OpenTnc();
    form.MsgNumber = 32766;
    Type("Q0AAA", "last");
    halvern.All.Dispatch([&] { Type("Q0AAA", "one too many"); });
    EXPECT_THAT(Said(), ElementsAre("message critical \"Halvern\" \"Error # 6 Overflow\""));
    EXPECT_EQ(form.OutMsg.Count(), 1);
}

TEST_F(OwnMessages, GetLostWithTheLastPort)
{
    OpenTnc();
    Type("Q0AAA", "Hello");
    form.MsgTxt.SetText("half");
    main.MSComm1.Close();
    station.time.Wait(1);
    EXPECT_EQ(form.OutMsg.Count() + form.MsgToYouLst.Count(), 0);
    EXPECT_EQ(form.SendCallTxt.Text() + form.MsgTxt.Text(), "");
    EXPECT_FALSE(form.Timer1.Enabled());
}

TEST_F(OwnMessages, ByPsk63AreSentAgainWithEnter)
{
    main.Psk63Soc.Connect();
    form.MailUnPath.SetText("psk63");
    Type("Q0AAA", "Hello");
    form.MsgTxt.Press(13);
    EXPECT_THAT(station.SentBy(main.Psk63Soc),
                ElementsAre("Q0OWN>APHV01::Q0AAA    :Hello{1\r\n", "Q0OWN>APHV01::Q0AAA    :Hello{1\r\n"));
    EXPECT_THAT(Lines(), ElementsAre("Q0OWN>Q0AAA:1.Hello"));
    EXPECT_EQ(form.MsgTxt.Text(), "Hello");
    EXPECT_EQ(form.OutMsg.Count(), 0);
    main.CLRMsgTxtMenu.Click();
    EXPECT_EQ(form.MsgTxt.Text(), "Hello") << "the window is not on";
    main.FrmState[5] = "True";
    main.CLRMsgTxtMenu.Click();
    EXPECT_EQ(form.MsgTxt.Text(), "");

    setUp.Psk63PortTxt.SetText("3122");
    Type("Q0AAA", "Bye");
    EXPECT_EQ(Lines().back(), "SSSSSQ0OWN>Q0AAA:2.ByeEEEEE");
    EXPECT_THAT(station.SentBy(main.Psk63Soc),
                ElementsAre(Marked("SSSSSQ0OWN>APHV01::Q0AAA    :Bye{2EEEEE"), testing::_));
    halvern.Engine.Psk63Busy = true;
    form.MsgTxt.Press(13);
    EXPECT_THAT(station.SentBy(main.Psk63Soc), IsEmpty());
}

TEST_F(OwnMessages, AreKilledFromTheirDialog)
{
    OpenTnc();
    Type("Q0AAA", "one");
    Type("BLN1", "all");
    Type("Q0AAA", "two");
    station.dialogs.RunModal = [&](Form&) {
        auto& kill = halvern.KillMsgFrm;
        EXPECT_FALSE(form.Timer1.Enabled());
        EXPECT_EQ(Rows(kill.KillLst), Rows(form.OutMsg));
        kill.KillLst.Mark(1, true);
        kill.KillLst.Mark(2, true);
        kill.OkCmd.Click();
        EXPECT_TRUE(kill.Visible());
        EXPECT_THAT(Lines(), ElementsAre("Q0OWN>Q0AAA:3.two"));
        EXPECT_THAT(Rows(form.OutMsg), ElementsAre(HasSubstr("two{3")));
        kill.CancelCmd.Click();
        EXPECT_EQ(form.Timer1.Interval(), 1);
        EXPECT_TRUE(form.Timer1.Enabled());
    };
    main.KillMsg.Click();
    station.dialogs.RunModal = [&](Form&) {
        halvern.KillMsgFrm.KillLst.Mark(0, true);
        station.Hear("Q0AAA>APRS::Q0OWN    :ack3"); // it is gone before the operator presses OK
        halvern.KillMsgFrm.OkCmd.Click();
        EXPECT_FALSE(halvern.KillMsgFrm.Visible());
    };
    main.KillMsg.Click();
    EXPECT_EQ(form.OutMsg.Count(), 0);
    Said();
    main.KillMsg.Click();
    EXPECT_THAT(Said(), ElementsAre(HasSubstr("There are no out going messages at this time")));
}

TEST_F(OwnMessages, HavePathsThatTheOperatorKeeps)
{
    auto& paths = form.MailUnPath;
    const auto act = [&](MenuItem& item, const char* answer = nullptr) {
        if (answer != nullptr) station.dialogs.Answers.push_back({answer, false});
        item.Click();
        return Said();
    };
    act(main.MailAddMenu, "wide1-1");
    EXPECT_EQ(Rows(paths), (Strings{"NONE", "WIDE2-2", "WIDE1-1"}));
    act(main.MailAddMenu, "");
    EXPECT_THAT(act(main.MailAddMenu, "tcpxx"), Contains(HasSubstr("are not allowed as paths on RF")));
    EXPECT_EQ(paths.Count(), 3);

    EXPECT_THAT(act(main.MailChangeMenu), ElementsAre(HasSubstr("You cannot Change this item.")));
    EXPECT_THAT(act(main.MailDeleteMenu), ElementsAre(HasSubstr("You cannot Delete this item.")));
    paths.SetText("typed");
    EXPECT_THAT(act(main.MailChangeMenu), ElementsAre(HasSubstr("before clicking on the Change menu item.")));
    EXPECT_THAT(act(main.MailDeleteMenu), ElementsAre(HasSubstr("before clicking on the Delete menu item.")));

    paths.Select(2);
    EXPECT_THAT(act(main.MailChangeMenu, "q0dig"), ElementsAre(HasSubstr("\"WIDE1-1\"")));
    EXPECT_EQ(paths.Row(2), "Q0DIG");
    act(main.MailChangeMenu, "");
    EXPECT_EQ(paths.Row(2), "Q0DIG");
    act(main.MailDeleteMenu);
    EXPECT_EQ(paths.Count(), 2);
    while (paths.Count() < 20) paths.Add("Q0DIG");
    EXPECT_THAT(act(main.MailAddMenu), ElementsAre(HasSubstr("You may not have more than 20 mail paths")));
}

TEST_F(OwnMessages, ShowOneTabAndTakeBackItsCaption)
{
    const struct {
        int tab;
        const char *caption, *after;
        bool traffic, send, bulletins;
    } cases[] = {{1, "New Message!", "Message", false, true, false},
                 {2, "New Message!", "New Message!", false, false, true},
                 {1, "New Bulletin!", "New Bulletin!", false, true, false},
                 {2, "New Bulletin!", "Message", false, false, true},
                 {0, "New Bulletin!", "New Bulletin!", true, false, false}};
    form.Show();
    EXPECT_TRUE(form.TrafficLst.Visible() && !form.MsgTxt.Visible());
    for (const auto& each : cases) {
        form.SetCaption(each.caption);
        form.SSTab2.Select(each.tab);
        EXPECT_EQ(form.Caption(), each.after);
        EXPECT_EQ(form.TrafficLst.Visible(), each.traffic);
        EXPECT_EQ(form.MsgToYouLst.Visible(), each.send);
        EXPECT_EQ(form.BullLst.Visible(), each.bulletins);
    }
}

} // namespace
} // namespace halvern::test
