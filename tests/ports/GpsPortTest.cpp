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

} // namespace
} // namespace halvern::test
