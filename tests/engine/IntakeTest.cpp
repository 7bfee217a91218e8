// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/ResetStores.h"
#include "protocol/PacketHeader.h"
#include "protocol/UtcTime.h"
#include "support/StationTest.h"

namespace halvern::test {
namespace {

struct Intake : StationTest {
    Strings Status() const { return Rows(halvern.StatusFrm.StatusLst); }
};

TEST(PacketHeader, SaysWhoSentToWhomByWhichPath)
{
    // source, dest and path with bars between; empty: no header
    const std::pair<const char*, const char*> cases[] = {
        {"Q1A>APR:", "Q1A|APR:|"},
        {"Q1ABC-12>APRS,WIDE1-1,WIDE2-1:", "Q1ABC-12|APRS|WIDE1-1,WIDE2-1"},
        {"Q1ABC>APRS,X:", "Q1ABC|APRS|X"},
        {"Q1ABC>APRS,:", ""},
        {"Q1ABC>APRS,AB,Q2ABC:", ""},
        {"Q1ABC>APRS,ABC,Q:", ""},
        {"Q1ABC>APRS,ABC,QQ:", "Q1ABC|APRS|ABC,QQ"},
        {"Q1ABC>,WIDE1-1:", ""},
        {"Q1ABC>A,WIDE1-1:", ""},
        {"Q1>APRS:", ""},
        {"Q123456789>APRS:", ""},
        {"Q12345678>APRS:", "Q12345678|APRS:|"},
        {"Q1A>:", ""}};
    for (const auto& [header, read] : cases) {
        std::ostringstream text;
        if (const auto parts = ReadPacketHeader(header))
            text << parts->source << "|" << parts->dest << "|" << parts->path;
        EXPECT_EQ(text.str(), read) << header;
    }
}

TEST_F(Intake, LinesThatAreNoPacketsLeaveNoRow)
{
    for (const auto* line :
         {"# server comment: a>b", "no colon > here", "no arrow: here", "Q1A>AP:x", "Q1ABC>APRS:", ""})
        station.Hear(line);
    EXPECT_THAT(Raw(), IsEmpty());
    station.Hear("Q1A>APR:\r>hel\nlo\r\n");
    EXPECT_THAT(Raw(), ElementsAre("Q1A>APR:>hello"));
    EXPECT_EQ(main.StatusBar1.Caption(), "Q1A>APR:>hello");
}

TEST_F(Intake, WeatherRowsGetTheirTime)
{
    station.time.SetUtc({2026, 11, 22, 9, 8, 7});
    const std::string timed = "22090807";
    for (const auto* info :
         {"_10090556c220", "#F7003402", "*7007", "!!006B00", "$ULTW0000", "!4903.50N/07201.75W_220",
          "-903.50N//07201.75W_220", "@092345z4903.50N/07201.75W_220", "/092345z4903.50N/07201.75W_220"}) {
        station.Hear("Q1ABC>APRS,WIDE:" + std::string(info));
        EXPECT_EQ(Raw().back(), "Q1ABC>APRS,WIDE:" + std::string(info) + timed);
    }
    for (const auto* info : {"$GPRMC,1", "!4903.50N/07201.75W-x", "=4903.50N/07201.75W_220", ">status"}) {
        station.Hear("Q1ABC>APRS,WIDE:" + std::string(info));
        EXPECT_EQ(Raw().back(), "Q1ABC>APRS,WIDE:" + std::string(info));
    }
}

TEST_F(Intake, AThirdPartyPacketLeavesOnlyWhatItCarries)
{
    station.Hear("Q1ABC>APRS,WIDE1-1:}Q2ABC>APRS,TCPIP,Q1ABC*:}Q3ABC>APRS,TCPIP*:>inner");
    EXPECT_THAT(Raw(), ElementsAre("Q3ABC>APRS,TCPIP*:>inner"));
    EXPECT_THAT(Status(), ElementsAre("Q3ABC     >inner"));
    EXPECT_THAT(Rows(halvern.DigiFrm.DigiLst), ElementsAre("Q3ABC     TCPIP*"));
    EXPECT_EQ(halvern.HeardFrm.HeardGrid.FindRow("Q1ABC", 0), NotFound);
}

TEST_F(Intake, TheModeDecidesWhichDestinationsAreLetIn)
{
    station.Hear("Q1ABC>APRS:>no path in mode normal");
    station.Hear("Q2ABC>FOO,WIDE1-1:>unknown destination");
    setUp.AprsMode.Preselect(1);
    halvern.Engine.OwnDest = SpecialDestination;
    station.Hear("Q3ABC>SPC:>no path");
    station.Hear("Q4ABC>SPC,WIDE1-1:>special");
    station.Hear("Q5ABC>APRS,WIDE1-1:>not special");
    EXPECT_THAT(Status(), ElementsAre("Q1ABC     >no path in mode normal", "Q4ABC     >special"));
    const auto raw = Raw();
    halvern.Engine.ReviewMode = true;
    station.Hear("Q1ABC>RESORC,WIDE1-1:DX de Q1ABC"); // in every mode, and not counted
    EXPECT_THAT(Rows(halvern.DxFrm.ResourceLst), ElementsAre("DX de Q1ABC"));
    EXPECT_EQ(Raw(), raw);
}

TEST_F(Intake, ABannerInFrontOfAPositionIsCutOff)
{
    station.Hear("Q1ABC>BEACON,WIDE:TheNet X-1J4 (QQ)!4903.50N/07201.75W#node");
    station.Hear("Q2ABC>BEACON,WIDE:TheNet and a banner that is much too long (QQ)!4903.50N/07201.75W#node");
    EXPECT_THAT(Rows(halvern.PositionFrm.PosLst), ElementsAre(StartsWith("Q1ABC ")));
}

TEST_F(Intake, UnknownTypesNeverOverwriteAStatusAndTheOwnOneStandsFirst)
{
    station.time.SetUtc({2026, 11, 22, 9, 8, 7});
    for (const auto* heard : {"1ABC>APRS,WIDE:<some beacon", "1ABC>APRS,WIDE:[another", "2ABC>APRS,WIDE:>a status",
                              "2ABC>APRS,WIDE:<some beacon", "3ABC>APRS,WIDE:#raw", "3ABC>APRS,WIDE:%x",
                              "3ABC>APRS,WIDE:)item", "3ABC>APRS,WIDE:*p", "3ABC>APRS,WIDE:T#001,1,2"})
        station.Hear("Q" + std::string(heard));
    EXPECT_THAT(Status(), ElementsAre("Q1ABC     [another", "Q2ABC     >a status"));
    halvern.StatusFrm.StatusLst.Clear();
    station.Hear("Q1ABC>APRS,WIDE:>other");
    station.Hear("Q0OWN>APRS,WIDE:>mine");
    EXPECT_THAT(Status(), ElementsAre("Q0OWN     >220908zmine"));
}

std::string GridRow(const Halvern& halvern, int row)
{
    const auto& grid = halvern.HeardFrm.HeardGrid;
    std::string text;
    for (int column = 0; column < grid.Cols(); ++column) text += (column ? "|" : "") + grid.Cell(row, column);
    return text;
}

TEST_F(Intake, TheGridCountsStationsByTheHourUntilTheFirstHourComesRound)
{
    const auto hearAt = [&](int day, int hour, const std::string& line) {
        station.time.SetUtc({2026, 11, day, hour, 5, 0});
        station.Hear(line);
    };
    station.time.SetUtc({2026, 11, 22, 9, 30, 0});
    ResetStores(halvern, "Clear");
    EXPECT_EQ(halvern.PositionFrm.PosLst.Count() + halvern.TerminalFrm.RawPacketLst.Count(), 0) << "no own station yet";
    hearAt(22, 23, "Q1ABC>APRS,WIDE:>x");
    main.HeardOnRfLst.Add("Q1ABC    0");
    hearAt(23, 8, "Q1ABC>APRS,WIDE:>x");
    EXPECT_EQ(GridRow(halvern, 0), "Call Sign|22/09:30|22/23:05|23/08:05");
    hearAt(23, 9, "Q2ABC>APRS,WIDE:>x");
    EXPECT_EQ(GridRow(halvern, 0), "Call Sign|23/09:05");
    EXPECT_EQ(GridRow(halvern, 2), "Q2ABC|1");
    EXPECT_EQ(main.HeardOnRfLst.Count(), 0);

    setUp.UnPath.Select(1);
    hearAt(23, 9, "Q0OWN>APHV01,WIDE2-2:>as sent");
    EXPECT_EQ(GridRow(halvern, 1), "Q0OWN|0");
    hearAt(23, 9, "Q0OWN>APHV01,Q1DIG*,WIDE2-1:>as repeated");
    halvern.Engine.ReviewMode = true;
    hearAt(23, 9, "Q0OWN>APHV01,Q1DIG*,WIDE2-1:>played back");
    EXPECT_EQ(GridRow(halvern, 1), "Q0OWN|1");
}

TEST(UtcTime, FollowsTheZoneThatIsInForce)
{
    EXPECT_EQ(UtcOffsetSeconds({.bias = 300}), -18000);
    EXPECT_EQ(UtcOffsetSeconds({.daylightInForce = true, .bias = 300, .daylightBias = -60, .daylightMonth = 3}),
              -14400);
    EXPECT_EQ(UtcOffsetSeconds({.daylightInForce = true, .bias = 300, .daylightBias = -60}), -18000);
    SimulatedTime clock;
    clock.SetZone({.bias = 300});
    EXPECT_EQ(UtcNow(clock, {2026, 12, 31, 22, 30, 15}), (Moment{2027, 1, 1, 3, 30, 15}));
    clock.SetUtc({2024, 2, 29, 0, 10, 0});
    EXPECT_EQ(clock.LocalTime(), (Moment{2024, 2, 28, 19, 10, 0}));
    EXPECT_EQ(UtcNow(clock), (Moment{2024, 2, 29, 0, 10, 0}));
}

struct Resets : Intake {
    Resets()
    {
        station.Hear("Q0OWN>APHV01,WIDE2-2:=4049.14N/07308.41W-own", "MAP");
        station.Hear("Q0OWN>APHV01,WIDE2-2:>here", "MAP");
        station.Hear("Q1ABC>APRS,WIDE:!4903.50N/07201.75W-other");
        station.Hear("Q1ABC>APRS,WIDE::Q2ABC    :traffic{1");
        halvern.MessageFrm.Timer1.Start(4000);
    }
};

TEST_F(Resets, ThePlaybacksKeepTheRawRowsAndTheSymbolFilterKeepsTheMessages)
{
    const int raw = halvern.TerminalFrm.RawPacketLst.Count();
    halvern.Engine.ReviewMode = true;
    ResetStores(halvern, "JustOk");
    EXPECT_THAT(Rows(halvern.PositionFrm.PosLst), ElementsAre(StartsWith("Q0OWN     =")));
    EXPECT_THAT(Status(), SizeIs(1));
    EXPECT_EQ(form.TrafficLst.Count(), 1);
    EXPECT_TRUE(form.Timer1.Running());
    ResetStores(halvern, "ImportLog");
    EXPECT_EQ(form.TrafficLst.Count(), 0);
    EXPECT_FALSE(form.Timer1.Running());
    EXPECT_EQ(halvern.TerminalFrm.RawPacketLst.Count(), raw);
    EXPECT_TRUE(halvern.Engine.ReviewMode);
}

TEST_F(Resets, AFullRawStoreOrAnyOtherWordEmptiesEverythingButTheOwnStation)
{
    for (const bool full : {false, true}) {
        if (full) {
            while (halvern.TerminalFrm.RawPacketLst.Count() <= 32700) halvern.TerminalFrm.RawPacketLst.Add("filler");
            station.Hear("Q3ABC>APRS,WIDE:>lost");
        } else {
            ResetStores(halvern, "Clear");
        }
        EXPECT_THAT(Raw(), ElementsAre("Q0OWN>APHV01:=4049.14N/07308.41W-own", "Q0OWN>APHV01:>here"));
        EXPECT_EQ(halvern.PositionFrm.PosLst.Count(), 1);
        EXPECT_THAT(Status(), SizeIs(1));
        EXPECT_FALSE(halvern.Engine.ReviewMode || main.RestoreMenu.Enabled());
    }
}

} // namespace
} // namespace halvern::test
