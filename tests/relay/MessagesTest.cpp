// SPDX-License-Identifier: GPL-3.0-or-later
#include "relay/Messages.h"

#include "protocol/OutMsg.h"
#include "support/StationTest.h"

namespace halvern::test {
namespace {

TEST(OutMsgRecords, AreReadAsTheyWereWritten)
{
    const MessageTrailer numbered{"{", ".", "12"}, plain{" ", " ", " "};
    using Text = std::string;
    const std::tuple<Text, Text, Text, Text, Text> cases[] = {
        // path, information, text, number
        {OutMsgRecord("Q0AAA-11", "APHV01", "WIDE2-2", "Hello", numbered), "WIDE2-2", ":Q0AAA-11 :Hello{12", "Hello",
         "12"},
        // another destination of own packets leaves the path in its columns
        {OutMsgRecord("Q0AAA", "SPC", "NONE", "a:b", numbered), "NONE", ":Q0AAA    :a:b{12", "a:b", "12"},
        {OutMsgRecord("Q0AAA", "TOOLONGONE", "TCPIP", "x{y", numbered), "TCPIP", ":Q0AAA    :x{y{12", "x", "y{12"},
        {OutMsgRecord("BLN1", "APHV01", "NONE", "all", plain), "NONE", ":BLN1     :all  ", "all  ", ""},
        // damaged ones: what is there
        {":Q0AAA    unproto APHV01 via WIDE2-2", "WIDE2-2", ":Q0AAA    ", "", ""},
        {":Q0", "", ":Q0", "", ""},
        {"", "", "", "", ""}};
    for (const auto& [record, path, information, text, number] : cases)
        EXPECT_EQ(std::tuple(OutMsgPath(record), OutMsgInformation(record), OutMsgText(record), OutMsgNumber(record)),
                  std::tuple(path, information, text, number));
    EXPECT_EQ(std::get<0>(cases[0]), ":Q0AAA-11 unproto APHV01 via WIDE2-2:Hello{12");
}

struct OwnMessages : StationTest {
    void OpenTnc()
    {
        station.OpenTnc();
        main.Timer2.Stop(); // the beacons are told elsewhere
    }
    void Type(const std::string& to, const std::string& text) { station.Type(to, text); }
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
    const std::string byNet = "internet Q0OWN>APHV01,TCPIP*::Q0AAA    :hi\r\n";
    const std::tuple<const char*, const char*, bool, std::string> cases[] = {
        // the radio is up in all but the last
        {"Q0AAA     WIDE1*", "WIDE2-2", true, "radio Q0OWN>APHV01,WIDE2-2::Q0AAA    :hi\r\n"},
        {"Q0AAA     TCPIP*", "WIDE2-2", true, byNet},
        {"Q0AAA     TCPXX*", "NONE", true, byNet},
        {"Q0BBB     TCPIP*", "NONE", true, "radio Q0OWN>APHV01::Q0AAA    :hi\r\n"},
        {"Q0AAA     WIDE1*", "WIDE2-2", false, byNet}};
    OpenTnc();
    main.InternetSoc.Connect();
    setUp.MsgGroupLst.Add("Q0AAA"); // sent once, so that each case stands for itself
    for (const auto& [heard, mailPath, radio, sent] : cases) {
        halvern.DigiFrm.DigiLst.Clear();
        halvern.DigiFrm.DigiLst.Add(heard);
        if (!radio) main.PortTnc.Click();
        form.MailUnPath.SetText(mailPath);
        Type("Q0AAA", "hi");
        EXPECT_THAT(Air(), ElementsAre(sent));
    }
}

TEST_F(OwnMessages, ToAllAndToGroupsHaveNoNumber)
{
    OpenTnc();
    setUp.MsgGroupLst.Add("CLUB");
    Type("BLN1", "all");
    Type("CLUB", "us\xC0");
    EXPECT_THAT(Lines(), ElementsAre("Q0OWN>BLN1:   all", "Q0OWN>CLUB:us\xC0"));
    EXPECT_THAT(Rows(form.OutMsg), ElementsAre(":BLN1     unproto APHV01 via NONE:all  "));
    EXPECT_THAT(station.SentByRadio(), ElementsAre("Q0OWN>APHV01::CLUB     :us\xC0\r\n"));
    EXPECT_EQ(form.MsgNumber, 2);
    form.MsgNumber = 32767;
    halvern.All.Dispatch([&] { Type("Q0AAA", "one too many"); });
    EXPECT_THAT(Said(), ElementsAre("message critical \"Halvern\" \"Error # 6 Overflow\""));
    EXPECT_EQ(form.OutMsg.Count(), 1);
    // with the last port all is lost
    main.MSComm1.Close();
    station.time.Wait(1);
    EXPECT_EQ(form.OutMsg.Count() + form.MsgToYouLst.Count(), 0);
    EXPECT_EQ(form.SendCallTxt.Text() + form.MsgTxt.Text(), "");
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
    while (form.MailUnPath.Count() < 20) form.MailUnPath.Add("Q0DIG");
    main.MailAddMenu.Click();
    EXPECT_THAT(Said(), ElementsAre(HasSubstr("You may not have more than 20 mail paths")));
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

} // namespace
} // namespace halvern::test
