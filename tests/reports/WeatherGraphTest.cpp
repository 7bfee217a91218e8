// SPDX-License-Identifier: GPL-3.0-or-later

#include "protocol/WeatherReading.h"
#include "support/StationTest.h"

namespace halvern::test {
namespace {

using Kind = WeatherReading::Kind;

TEST(WeatherReading, OfEveryFormAndQuantity)
{
    struct {
        const char* info;
        Kind kind;
        double temperature, barometer;
        int gauge, direction;
        double speed;
    } const rows[] = {
        {"*4095D00", Kind::Missing, 37, 0, 180, 90, 9},
        {"#40A5D00", Kind::Missing, 37, 0, 180, 90, 6.2137},
        {"!!00A000B4030501272702----", Kind::Good, 77.3, 998.6, 272, 180, 9.94192},
        {"$ULTW00A000B4FFF600002702", Kind::Good, -1, 998.6, 272, 180, 9.94192},
        {"_10090556c220s004g005t077r000p000P000h50b09900wRSW", Kind::Good, 77, 99, 312, 220, 4},
        {"!4903.50N/07201.75W_300/004g005t077r000b09900", Kind::Good, 77, 99, 32, 300, 4},
        {"@092345z4903.50N/07201.75W_220/004g005t077r000b09900", Kind::Good, 77, 9900, 312, 220, 4},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.info);
        EXPECT_TRUE(LooksLikeWeather(row.info));
        const auto barometer = ReadWeather(row.info, WeatherQuantity::Barometer);
        const auto wind = ReadWeather(row.info, WeatherQuantity::Wind);
        EXPECT_FLOAT_EQ(ReadWeather(row.info, WeatherQuantity::Temperature).value, static_cast<float>(row.temperature));
        EXPECT_EQ(barometer.kind, row.kind);
        EXPECT_FLOAT_EQ(barometer.value, static_cast<float>(row.barometer));
        EXPECT_EQ(wind.gauge, row.gauge);
        EXPECT_EQ(wind.direction, row.direction);
        EXPECT_FLOAT_EQ(wind.value, static_cast<float>(row.speed));
    }
    for (const auto* info : {"*4095d00", "_10090556c220s004t-12", "_t...", "!!00A0", "!!00A000B403 501272702", "_1009",
                             "_", "!4903.50N/07201.75W_300/004", "$ULTW"})
        EXPECT_EQ(ReadWeather(info, WeatherQuantity::Temperature).kind, Kind::Malformed) << info;
    for (const auto* info : {"!4903.50N/07201.75W-", "$GPRMC", ">", ""})
        EXPECT_EQ(ReadWeather(info, WeatherQuantity::Wind).kind, Kind::None) << info;
}

struct WeatherGraphs : StationTest {
    Strings Graph(int kind, const std::string& call, const Strings& raw)
    {
        halvern.TerminalFrm.RawPacketLst.Clear();
        for (const auto& row : raw) halvern.TerminalFrm.RawPacketLst.Add(row);
        weather.CallSignTxt.SetText(call);
        weather.GraphOpt.Preselect(kind);
        Said();
        weather.ComputeCmd.Click();
        return Said();
    }

    WeatherForm& weather = halvern.WeatherFrm;
    GraphForm& graph = halvern.GraphFrm;
    CompassForm& compass = halvern.CompassFrm;
};

TEST_F(WeatherGraphs, DrawReportsThatAreNotTooClose)
{
    const Strings raw{"Q1WX>APRS:_10090556c220s004t07701000000",   "Q1WX>APRS:_10090556c220s004t07801000020",
                      "Q1WX-9>APRS:_10090556c220s004t07901000031", "Q2>APRS:_10090556c220s004t08001000100",
                      "Q1WX>APRS:_10090556c220s004t...01000200",   "Q1WX>APRS:!4903.50N/07201.75W-no weather01000300"};
    EXPECT_THAT(Graph(0, "Q1WX", raw), ElementsAre("modal GraphFrm", "closed GraphFrm"));
    EXPECT_EQ(weather.PacketLst.Count(), 4) << "the prefix takes both; what looks like weather counts";
    EXPECT_THAT(Rows(graph.GraphLst), ElementsAre("77", "79", "0"));
    EXPECT_EQ(graph.Caption() + "|" + graph.Graph1.Caption() + "|" + graph.BottomTitle + "|" + graph.LeftTitle,
              "Temperature Change at Q1WX|Temperature Change|Reports|Temperature");
    EXPECT_EQ(graph.UpperBound - graph.LowerBound, 250);
    EXPECT_THAT(graph.Times, ElementsAre("01 00:00:00", "01 00:00:31"));
}

TEST_F(WeatherGraphs, TellWhatIsMissing)
{
    const std::string good = "Q1WX>APRS:_10090556c220s004t077b0990001000000", later = "01000100";
    EXPECT_THAT(Graph(0, "CALL SIGN", {good}),
                ElementsAre(HasSubstr("critical \"Halvern\" \"You first have to enter a Call Sign"),
                            HasSubstr("information \"Halvern\" \"CALL SIGN Not Found.\"")));
    EXPECT_THAT(Graph(0, "Q1WX", {"Q1WX>APRS:>status"}), ElementsAre(HasSubstr("No Weather Data available at Q1WX")));
    EXPECT_THAT(Graph(0, "Q1WX", {good}), ElementsAre(HasSubstr("Need more than  1 number of reports to make Graph.")));
    EXPECT_THAT(Graph(0, "Q1WX", {good, "Q1WX>APRS:_t..." + later}),
                ElementsAre(HasSubstr(R"(Malformed packets received from Q1WX\r\n Not enough packets left)")));
    EXPECT_THAT(Graph(1, "Q1", {"Q1>APRS:*4095D0001000000", "Q1>APRS:*4095D00" + later}),
                ElementsAre(HasSubstr("Q1 Weather station does not have a Barometer.")));
    EXPECT_THAT(Graph(0, "Q1", {"Q1>APRS:!x01000000", "Q1>APRS:!x" + later}),
                ElementsAre(HasSubstr("No packets received for Q1")));
}

TEST_F(WeatherGraphs, PlayTheWindOnTheCompass)
{
    const Strings raw{"Q1>APRS:*00A5D0001000000", "Q1>APRS:*40B5D0001000100", "Q1>APRS:#80C5D0001000200"};
    int seconds = 0;
    station.dialogs.PassTime = [&](int milliseconds) {
        EXPECT_EQ(milliseconds, 1000);
        EXPECT_EQ(compass.DirGage.Value(), LeadingNumber(compass.CompassLst.Row(seconds)));
        if (++seconds == 5) compass.RunSimulation.Click();
    };
    station.dialogs.RunModal = [&](Form& form) {
        compass.OnActivate();
        EXPECT_EQ(compass.SpeedLst.Selected(), compass.SpeedLst.Count() > 0 ? 0 : -1);
        compass.RunSimulation.Click();
        form.Hide();
    };
    EXPECT_THAT(Graph(2, "Q1", raw), Contains("modal CompassFrm"));
    EXPECT_EQ(seconds, 3);
    EXPECT_THAT(Rows(compass.CompassLst), ElementsAre("90", "180", "270"));
    EXPECT_THAT(Rows(compass.DirectionLst), ElementsAre("0", "90", "180"));
    EXPECT_THAT(Rows(compass.SpeedLst), ElementsAre("10", "11", "7.45644"));
    seconds = 0;
    Graph(2, "Q1", raw);
    EXPECT_EQ(compass.CompassLst.Count(), 6) << "until the form is unloaded";
    EXPECT_EQ(seconds, 5) << "a second press stops it";
    compass.Unload();
    EXPECT_EQ(compass.CompassLst.Count(), 0);
    EXPECT_THAT(Graph(0, "Q1", {"Q1>APRS:_t00001000000", "Q1>APRS:_t07001000100"}), Contains("modal CompassFrm"))
        << "a first value of 0 opens the compass";
}

} // namespace
} // namespace halvern::test
