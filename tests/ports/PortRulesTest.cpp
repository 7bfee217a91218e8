// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/StationTest.h"

namespace halvern::test {
namespace {

struct PortRules : StationTest {
    PortRules()
    {
        setUp.IntDomainCombo.SetText("feed.example");
        setUp.APRServePortTxt.SetText("14580");
    }
    MenuItem& Item(const std::string& name) { return dynamic_cast<MenuItem&>(*halvern.All.Find("ConMdiFrm." + name)); }
};

TEST_F(PortRules, OpeningStartsWhatThePortNeeds)
{
    const std::tuple<const char*, std::string, int> cases[] = {{"PortTnc", "TNC Port", 1},
                                                               {"SoundCardMenu", "Sound Card Port", 1},
                                                               {"Psk63Menu", "PSK63 Port", 1},
                                                               {"PortIp", "TCP/IP Port", 0}};
    setUp.PortLst.Preselect(11);
    setUp.PortSpeedLst.Preselect(6);
    for (const auto& [item, words, beaconInterval] : cases) {
        main.FrmMenu(7).SetEnabled(false);
        Item(item).Click();
        EXPECT_EQ(main.StatusBar1.Caption(), words + " Open");
        EXPECT_EQ(main.Timer2.Running() ? main.Timer2.Interval() : 0, beaconInterval) << words;
        EXPECT_EQ(main.NetDecayTmr.Interval(), 60000);
        EXPECT_TRUE(main.NetDecayTmr.Enabled() && main.MyObjectsMenu.Visible() && main.FrmMenu(7).Enabled());
        EXPECT_EQ(main.CgiFinduMenu.Visible(), words == "TCP/IP Port");
        Item(item).Click();
        EXPECT_EQ(main.StatusBar1.Caption(), words + " Closed");
    }
    main.GpsMenu.SetChecked(true);
    for (const auto& [item, words, beaconInterval] : cases) Item(item).Click();
    EXPECT_FALSE(main.Timer2.Running() || main.PortIp.Checked());
    EXPECT_THAT(Said(), ElementsAre(HasSubstr("You cannot open the TCP/IP port while the GPS Port is open.")));
    for (const auto* item : {"PortTnc", "SoundCardMenu", "Psk63Menu"}) {
        EXPECT_TRUE(main.GpsMenu.Checked()) << item;
        Item(item).Click();
    }
    EXPECT_FALSE(main.GpsMenu.Checked()) << "it goes with the last radio port";
    EXPECT_EQ(main.MSComm1.Settings + " " + std::to_string(main.MSComm1.PortNumber), "9600,n,8,1 12");
}

TEST_F(PortRules, TheInternetPortNeedsAServerAndItsPort)
{
    const std::string failed = "Internet connection failed.", status = "Not connected to feed.example:";
    const std::tuple<const char*, const char*, int, std::string, std::string> cases[] = {
        {"", "", 0, "You have to select a APRServer name first. ", ""},
        {"feed.example", "", 0, "You have to select a APRServer Port number first. ", ""},
        {" feed.example ", " 14580 ", 10061, failed, status + "14580: busy"},
        {"feed.example", "80116", 0, failed, status + "80116: a port is a number from 1 to 65535"},
        {"feed.example", "14580.4", 0, failed, status + "14580.4: a port is a number from 1 to 65535"}};
    for (const auto& [server, port, refusal, words, shown] : cases) {
        setUp.IntDomainCombo.SetText(server);
        setUp.APRServePortTxt.SetText(port);
        if (refusal != 0) station.ports.Line(main.InternetSoc)->Refuse(refusal, "busy");
        main.PortIp.Click();
        EXPECT_THAT(Said(), ElementsAre(StartsWith("message critical \"Halvern\" \"" + words)));
        EXPECT_FALSE(main.PortIp.Checked() || main.InternetSoc.Connected());
        EXPECT_EQ(main.StatusBar1.Caption(), shown);
    }
}

} // namespace
} // namespace halvern::test
