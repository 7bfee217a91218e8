// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/GpsPort.h"

#include "state/Rows.h"
#include "support/Receiver.h"
#include "support/StationTest.h"

namespace halvern::test {
namespace {

const std::string There = "$GPRMC,210000,A,4100.00,N,07200.00,W,30.2,271.0,010100,,*7C";

struct GpsPort : StationTest {
    GpsPort()
    {
        station.Hear("Q0OWN>APHV01:=4049.14N/07308.41W-at home", "MAP");
        Said();
        main.GpsMenu.SetEnabled(true);
        halvern.Engine.GpsPositionOn = true;
        setUp.GpsOpt.Select(0);
        setUp.GpsSentanceLst.Preselect(setUp.GpsSentanceLst.IndexOf("GPRMC"));
    }
    /// With the TNC, to the first open of the line.
    void Open()
    {
        station.OpenTnc();
        main.GpsMenu.Click();
        station.time.Wait(1);
        ASSERT_TRUE(main.GpsCom.IsOpen());
    }
    void Hear(const std::string& sentence) { main.GpsCom.Arrived(ReceiverBlock(sentence)); }
    bool Stopped() const { return !main.GpsMenu.Checked() && !main.GpsCom.IsOpen() && !main.GpsTimer.Running(); }
};

TEST_F(GpsPort, AFixGoesOutByRadioAndPsk63AndMovesTheOwnStation)
{
    setUp.UnPath.Preselect(1);
    setUp.SymbolCombo.Preselect(setUp.SymbolCombo.IndexOf("Truck Overlay \\u"));
    setUp.OverlayChar = "7";
    main.Psk63Soc.Connect();
    Open();
    Hear(There);
    const std::string head = "Q0OWN>APHV01,WIDE2-2:", position = "=4100.00N707200.00Wu271/030 own";
    EXPECT_THAT(Air(), ElementsAre("radio " + head + position, "radio " + head + ">here",
                                   "psk63 " + head + position + "\r\n", "psk63 " + head + ">here\r\n"));
    EXPECT_THAT(Raw(), ElementsAre(HasSubstr("at home"), HasSubstr(":>here"), HasSubstr(position)))
        << "the engine hears the status first";
    EXPECT_EQ(positionRow::FromLatitude(halvern.PositionFrm.PosLst.Row(0)), position.substr(1));
    EXPECT_FALSE(main.GpsCom.IsOpen() || main.Timer2.Running());
    main.BeaconMenu.Click();
    EXPECT_THAT(station.SentByRadio(), ElementsAre(head + position));
}

TEST_F(GpsPort, OpensTheLineAtTheChosenTimes)
{
    const std::pair<const char*, std::vector<int>> cases[] = {
        {"30 Sec", {0, 30, 60, 90, 120, 150}}, {"1 Min", {0, 65, 130}}, {"5 Min", {0, 325, 650}}};
    for (const auto& [every, seconds] : cases) {
        Open();
        main.GpsMenu.Click();
        setUp.GpsSendTimeLst.Preselect(setUp.GpsSendTimeLst.IndexOf(every));
        const auto start = station.time.Elapsed();
        std::vector<int> opened;
        main.GpsMenu.Click();
        while (opened.size() < seconds.size() && station.time.Elapsed() - start < 3600 * 1000) {
            station.time.Wait(1);
            if (!main.GpsCom.IsOpen()) continue;
            opened.push_back(static_cast<int>((station.time.Elapsed() - start) / 1000));
            Hear(There);
        }
        EXPECT_EQ(opened, seconds) << every;
        EXPECT_FALSE(main.Timer2.Running());
        main.GpsMenu.Click();
        main.PortTnc.Click();
    }
}

TEST_F(GpsPort, TakesTheBeaconsPlaceAndGivesItBackWhileARadioPortIsOpen)
{
    const std::pair<std::function<void()>, bool> radioPorts[] = {{[] {}, false},
                                                                 {[&] { main.InternetSoc.Connect(); }, false},
                                                                 {[&] { main.Psk63Soc.Connect(); }, true},
                                                                 {[&] { main.SoundSoc.Connect(); }, true},
                                                                 {[&] { main.MSComm1.Open(); }, true}};
    for (const auto& [open, radio] : radioPorts) {
        for (Socket* socket : {&main.InternetSoc, &main.Psk63Soc, &main.SoundSoc}) socket->Disconnect();
        setUp.GpsOpt.Select(0);
        setUp.GpsPortLst.Preselect(9);
        main.GpsMenu.SetEnabled(true);
        halvern.Engine.GpsPositionOn = true;
        main.FrmMenu(7).SetEnabled(false);
        form.Timer1.Start(4000);
        main.Timer2.Start(60000);
        open();
        main.GpsMenu.Click();
        EXPECT_TRUE(main.GpsMenu.Checked() && main.MyObjectsMenu.Visible() && main.FrmMenu(7).Enabled());
        EXPECT_EQ(main.StatusBar1.Caption() + " " + main.GpsCom.Settings, "GPS Port Open 4800,n,8,1");
        EXPECT_EQ(main.GpsCom.PortNumber, 10);
        EXPECT_FALSE(main.GpsCom.IsOpen()) << "not before a send time";
        EXPECT_EQ(std::pair(main.Timer2.Interval(), main.NetDecayTmr.Interval()), std::pair(0, 60000));
        station.time.Wait(1);
        EXPECT_TRUE(main.GpsCom.IsOpen());
        main.GpsMenu.Click();
        EXPECT_TRUE(Stopped());
        EXPECT_EQ(main.StatusBar1.Caption(), "GPS Port Closed");
        EXPECT_EQ(main.Timer2.Running() ? main.Timer2.Interval() : 0, radio ? 1 : 0);
        for (const bool on : {main.NetDecayTmr.Running(), form.Timer1.Running(), main.MyObjectsMenu.Visible(),
                              main.GpsMenu.Enabled(), setUp.GpsOpt.On(0), halvern.Engine.GpsPositionOn})
            EXPECT_EQ(on, radio);
    }
}

TEST_F(GpsPort, ALineThatDoesNotOpenOrASilentReceiverEndsThePort)
{
    const std::string title = "message none \"Error Opening GPS Port\" \"Error # ";
    Open();
    main.GpsCom.Arrived("$GPRMC,210000,A");
    station.time.Wait(5 * 65000 - 1);
    EXPECT_THAT(Said(), IsEmpty());
    station.time.Wait(1);
    EXPECT_THAT(Said(),
                ElementsAre(StartsWith(title + "8005 was generated by GpsCom\\rThe GPS has sent fewer than 1000")));
    EXPECT_TRUE(Stopped());
    EXPECT_FALSE(main.Timer2.Running()) << "where the station is nobody knows";

    station.ports.Line(main.GpsCom)->Refuse(8002, "no such device");
    main.GpsMenu.Click();
    station.time.Wait(1);
    EXPECT_THAT(Said(), ElementsAre(title + "8002 was generated by GpsCom\\rno such device\""));
    EXPECT_TRUE(Stopped() && main.GpsMenu.Enabled());

    // what an unplugged receiver said last is not taken for news
    main.GpsMenu.Click();
    station.time.Wait(1);
    main.GpsCom.Arrived(There);
    main.GpsCom.device->Close();
    station.time.Wait(5 * 65000);
    Hear("$GPRMC,210000,A,4200.00,N,07200.00,W,30.2,271.0,010100,,*7C");
    EXPECT_THAT(station.SentByRadio(), ElementsAre(HasSubstr("=4200.00N"), HasSubstr(">here")));
}

TEST_F(GpsPort, TheSetupFormClosesItWhereThePortsClashOrTheReceiverIsDetached)
{
    for (const bool clash : {true, false}) {
        setUp.GpsOpt.Select(0);
        setUp.WXPortCombo.Preselect(clash ? setUp.GpsPortLst.Selected() : 15);
        Open();
        if (!clash) setUp.GpsOpt.Select(1);
        setUp.TabOkCmd.Click();
        EXPECT_THAT(Said(), SizeIs(clash ? 1 : 0));
        EXPECT_TRUE(Stopped() && setUp.GpsOpt.On(1) && !halvern.Engine.GpsPositionOn);
        EXPECT_EQ(main.Timer2.Interval(), 1) << "the station stands still now";
        main.PortTnc.Click();
    }
}

} // namespace
} // namespace halvern::test
