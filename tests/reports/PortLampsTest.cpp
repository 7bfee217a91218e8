// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/PortLamps.h"
#include "support/StationTest.h"

namespace halvern::test {
namespace {

struct Lamps : StationTest {
    std::string Of(std::size_t port)
    {
        const auto lamp = lamps.Look()[port];
        return lamp.words + (lamp.reason.empty() ? "" : ": " + lamp.reason);
    }
    std::string Server() { return Of(1); }
    PortLamps lamps{halvern};
};

TEST_F(Lamps, TellAServersEveningFromItsLoginToItsLoss)
{
    EXPECT_EQ(Server(), "closed");
    setUp.IntDomainCombo.SetText("127.0.0.1");
    main.PortIp.Click();
    EXPECT_EQ(Server(), "open");
    main.InternetSoc.Arrived("# server\r\n");
    EXPECT_EQ(Server(), "sending") << "the login";
    main.Timer2.Stop();
    main.InternetSoc.Arrived("# logresp Q0OWN unverified, server T2TEST\r\n");
    station.time.Wait(3000);
    EXPECT_EQ(Server(), "unverified: # logresp Q0OWN unverified, server T2TEST");
    main.InternetSoc.Arrived("# logresp Q0OWN verified, server T2TEST\r\n");
    EXPECT_EQ(Server(), "open: # logresp Q0OWN verified, server T2TEST");
    station.time.Wait(240000);
    EXPECT_EQ(Server().substr(0, 12), "quiet 4 min:");
    station.ports.SocketOf(main.InternetSoc)->HangUp();
    EXPECT_THAT(Server(), testing::MatchesRegex("lost since ..:..: the other end has closed"));
    const auto since = Server();
    station.time.Wait(600000);
    EXPECT_EQ(Server(), since) << "the time of its loss stands";
    EXPECT_TRUE(main.PortIp.Checked()) << "the mark stays with whoever set it";
    main.PortIp.Click();
    EXPECT_EQ(Server(), "closed");
    main.PortIp.Click();
    EXPECT_EQ(Server(), "open") << "of the last answer nothing is left";
}

TEST_F(Lamps, TellARadioThatIsUnpluggedAndStoresThatStartAgain)
{
    station.OpenTnc();
    main.Timer2.Stop();
    EXPECT_EQ(Of(0), "open");
    main.MSComm1.Lost("the device is gone");
    EXPECT_EQ(Of(0).substr(0, 10), "lost since");
    for (int i = 0; halvern.TerminalFrm.RawPacketLst.Count() <= 32700; ++i)
        halvern.TerminalFrm.RawPacketLst.Add("Q0X>APRS:>" + std::to_string(i));
    station.Hear("Q0ABC>APRS:>x");
    const auto& notices = halvern.NoticesFrm.NoticeLst;
    EXPECT_THAT(notices.Row(notices.Count() - 1), HasSubstr("All lists were emptied"));
}

} // namespace
} // namespace halvern::test
