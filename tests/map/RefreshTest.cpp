// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/Refresh.h"
#include "support/MapStation.h"

namespace halvern::test {
namespace {

TEST(DeadReckoning, FollowsTheCourseInFourQuartersAndChangesSidesAt45)
{
    const struct {
        int course;
        double latitude, longitude; ///< of one mile at range 1
    } cases[] = {{0, 1, 0},           {360, 1, 0},  {30, 0.866, -0.5}, {45, 0.707, -0.707},
                 {46, 0.719, -0.695}, {90, 1, 0},   {91, -1, -0.017},  {180, -1, 0},
                 {181, -1, 0.017},    {270, -1, 0}, {271, 1, 0.017},   {300, 0.866, 0.5}};
    for (const auto& [course, latitude, longitude] : cases) {
        const auto step = AlongCourse(course, 1, 1);
        EXPECT_NEAR(step.latitude, latitude, 1e-3) << course;
        EXPECT_NEAR(step.longitude, longitude, 1e-3) << course;
    }
    EXPECT_NEAR(AlongCourse(0, 30, 256).latitude, 30.0 / 256, 1e-9);
}

class RefreshMap : public MapStation {
protected:
    RefreshMap()
    {
        folder.Put("symbols/table2/118.gif", GifOf(16, 12));
        ShowMap();
        GoToView(halvern(), 40, 73, 256);
        halvern().SetUpfrm.DeadOnOpt.Select(0);
        station.time.SetUtc({2010, 6, 1, 12, 0, 0});
    }
    /// How far a station stands from where it said it was, north and west, in degrees.
    std::pair<double, double> Moved(const std::string& call)
    {
        const int index = halvern().PositionFrm.PosLst.Find(CallField(call));
        const auto& plot = halvern().Map.StationPlot.at(static_cast<std::size_t>(index));
        return {plot.Lat - 40.0, plot.Lon - 73.0};
    }
    void RefreshAt(int hour, int minute)
    {
        station.time.SetUtc({2010, 6, 1, hour, minute, 0});
        main().RefreshMnu.Click();
    }
};

TEST_F(RefreshMap, MovesWhatMovesByTheTimeSinceItsReport)
{
    const std::string place = "4000.00N/07300.00W";
    station.Hear("Q1CAR>APRS:!" + place + ">090/064 on the road");
    station.Hear("Q1NEW>APRS:@011230z" + place + ">000/064");
    station.Hear("Q1OBJ>APRS:;STORM    *011200z" + place + "-000/128 slowly");
    station.Hear("Q1HOM>APRS:!" + place + "-000/064");
    station.Hear("Q1STP>APRS:!" + place + ">000/000");
    station.Hear("Q1BAD>APRS:!" + place + ">0a0/064");
    station.Hear("Q1CUT>APRS:!" + place + ">000/06");
    RefreshAt(12, 30);
    EXPECT_NEAR(Moved("Q1CAR").first, 32.0 / 256, 1e-5);
    EXPECT_NEAR(Moved("STORM").first, 64.0 / 256, 1e-5);
    for (const auto* still : {"Q1NEW", "Q1HOM", "Q1STP", "Q1BAD", "Q1CUT"}) EXPECT_EQ(Moved(still).first, 0) << still;
    const auto colourOf = [&](const char* call) {
        return halvern().MapFrm.SymLbl(halvern().PositionFrm.PosLst.Find(CallField(call))).colour;
    };
    EXPECT_EQ(colourOf("Q1CAR"), colour::Green);
    EXPECT_EQ(colourOf("STORM"), colour::Magenta);
    EXPECT_EQ(colourOf("Q1STP"), colour::Grey);
    EXPECT_EQ(halvern().PositionFrm.ShPosLst.Count(), halvern().PositionFrm.PosLst.Count());

    halvern().SetUpfrm.DeadOnOpt.Select(1);
    RefreshAt(13, 30);
    EXPECT_NEAR(Moved("Q1CAR").first, 32.0 / 256, 1e-5) << "switched off";
}

TEST_F(RefreshMap, AReportOfYesterdayTurnsTheClockForTheRestOfThePass)
{
    const std::string place = "z4000.00N/07300.00W>000/128";
    station.Hear("Q1LAT>APRS:@010100" + place);
    station.Hear("Q1EVE>APRS:@312300" + place);
    station.Hear("Q1TWO>APRS:@010200" + place);
    RefreshAt(2, 30);
    EXPECT_NEAR(Moved("Q1LAT").first, 1.5 * 128 / 256, 1e-5);
    EXPECT_NEAR(Moved("Q1EVE").first, (24.5 - 21) * 128 / 256, 1e-5);
    EXPECT_NEAR(Moved("Q1TWO").first, 22.5 * 128 / 256, 1e-5);
}

} // namespace
} // namespace halvern::test
