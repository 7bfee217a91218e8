// SPDX-License-Identifier: GPL-3.0-or-later

#include "protocol/WeatherReading.h"
#include "support/StationTest.h"

namespace halvern::test {
namespace {

using Kind = WeatherReading::Kind;

TEST(WeatherReading, OfEveryFormAndQuantity)
{
    using Row = std::tuple<const char*, Kind, double, double, int, int, double>;
    for (const auto& [info, kind, temperature, pressure, gauge, direction, speed] :
         {Row{"*4095D00", Kind::Missing, 37, 0, 180, 90, 9}, Row{"#40A5D00", Kind::Missing, 37, 0, 180, 90, 6.2137},
          Row{"!!00A000B4030501272702----", Kind::Good, 77.3, 998.6, 272, 180, 9.94192},
          Row{"$ULTW00A000B4FFF600002702", Kind::Good, -1, 998.6, 272, 180, 9.94192},
          Row{"_10090556c220s004g005t077r000p000P000h50b09900wRSW", Kind::Good, 77, 99, 312, 220, 4},
          Row{"!4903.50N/07201.75W_300/004g005t077r000b09900", Kind::Good, 77, 99, 32, 300, 4},
          Row{"@092345z4903.50N/07201.75W_220/004g005t077r000b09900", Kind::Good, 77, 9900, 312, 220, 4}}) {
        SCOPED_TRACE(info);
        EXPECT_TRUE(LooksLikeWeather(info));
        const auto barometer = ReadWeather(info, WeatherQuantity::Barometer);
        const auto wind = ReadWeather(info, WeatherQuantity::Wind);
        EXPECT_FLOAT_EQ(ReadWeather(info, WeatherQuantity::Temperature).value, static_cast<float>(temperature));
        EXPECT_EQ(barometer.kind, kind);
        EXPECT_FLOAT_EQ(barometer.value, static_cast<float>(pressure));
        EXPECT_TRUE(wind.gauge == gauge && wind.direction == direction);
        EXPECT_FLOAT_EQ(wind.value, static_cast<float>(speed));
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
    const std::tuple<int, std::string, Strings, const char*> cases[] = {
        {0, "Q1WX", {"Q1WX>APRS:>status"}, "No Weather Data available at Q1WX"},
        {0, "Q1WX", {good}, "Need more than  1 number of reports to make Graph."},
        {0,
         "Q1WX",
         {good, "Q1WX>APRS:_t..." + later},
         R"(Malformed packets received from Q1WX\r\n Not enough packets left)"},
        {1,
         "Q1",
         {"Q1>APRS:*4095D0001000000", "Q1>APRS:*4095D00" + later},
         "Q1 Weather station does not have a Barometer."},
        {0, "Q1", {"Q1>APRS:!x01000000", "Q1>APRS:!x" + later}, "No packets received for Q1"}};
    for (const auto& [kind, call, raw, words] : cases)
        EXPECT_THAT(Graph(kind, call, raw), ElementsAre(HasSubstr(words)));
    EXPECT_THAT(Graph(0, "CALL SIGN", {good}),
                ElementsAre(HasSubstr("You first have to enter a Call Sign"), HasSubstr("\"CALL SIGN Not Found.\"")));
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
