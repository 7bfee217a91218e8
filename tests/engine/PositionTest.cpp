// SPDX-License-Identifier: GPL-3.0-or-later

#include "protocol/DecodeMicE.h"
#include "protocol/PositionText.h"
#include "protocol/Sentence.h"
#include "protocol/SplitSentence.h"
#include "support/StationTest.h"

namespace halvern::test {
namespace {

struct Positions : StationTest {
    Positions() { station.time.SetUtc({2026, 11, 22, 9, 8, 7}); }
    Strings Rows() const { return StationTest::Rows(halvern.PositionFrm.PosLst); }
    Strings Paths() const { return StationTest::Rows(halvern.DigiFrm.DigiLst); }
};

TEST(PositionText, ReadsDegreesNorthAndWestPositive)
{
    const std::pair<const char*, double> cases[] = {
        {"4049.14N", 40.819}, {"4049.14s", -40.819}, {"49  .  N", 49}, {"0000.00N", 0}, {"9059.99N", 90.9998333},
        {"9100.00N", 0},      {"4059.995", 0},       {"4060.00N", 0},  {"40A9.14N", 0}, {"404.914N", 0},
        {"4049.14W", 0},      {"4049.1", 0},         {"", 0}};
    for (const auto& [text, degrees] : cases) EXPECT_NEAR(LatTextToDegrees(text), degrees, 1e-6) << text;
    EXPECT_NEAR(LonTextToDegrees("07308.41W"), 73.1401667, 1e-6);
    EXPECT_NEAR(LonTextToDegrees("07308.41e"), -73.1401667, 1e-6);
    EXPECT_EQ(LonTextToDegrees("18100.00W"), 0);
    EXPECT_EQ(LonTextToDegrees("0730.841W"), 0);
}

TEST_F(Positions, ReportsThatCanNotBePlacedLeaveOnlyARawRow)
{
    for (const auto* info :
         {"!0000.00N/00000.00W-", "@211812h4903.50N/07201.75W-", "/211812/4903.50N/07201.75W-", "!/5L!!<*e7>7P[",
          "!4903.50N/07201.75W", "!4903.50N/07201.75W|", "!4959.995/07201.75W-", "!"})
        station.Hear(std::string("Q1ABC>APRS,WIDE1-1:") + info);
    EXPECT_THAT(Rows(), IsEmpty());
    EXPECT_THAT(Paths(), IsEmpty());
    EXPECT_EQ(halvern.TerminalFrm.RawPacketLst.Count(), 8);
    EXPECT_EQ(halvern.HeardFrm.HeardGrid.FindRow("Q1ABC", 1), 2) << "it was heard all the same";
}

TEST_F(Positions, AmbiguityIsStoredAsZerosAndMovesTheStationEachTime)
{
    station.Hear("Q1ABC>APRS,WIDE1-1:!49  .  N/072  .  W-");
    EXPECT_THAT(Rows(), ElementsAre("Q1ABC     !220908z4900.00N/07200.00W-"));
    ASSERT_FALSE(halvern.Map.StationPlot.empty());
    station.Hear("Q1ABC>APRS,WIDE1-1:!49  .  N/072  .  W-");
    EXPECT_EQ(halvern.Map.StationPlot[0].Color, colour::Cyan);
}

TEST_F(Positions, AKnownStationKeepsItsRowAndItsMark)
{
    auto& store = halvern.PositionFrm.PosLst;
    station.Hear("Q1ABC>APRS,WIDE1-1:!4903.50N/07201.75W-");
    station.Hear("Q2ABC>APRS,WIDE1-1:!4903.50N/07201.75W-");
    store.Replace(0, "Q1ABC    A!220908z4903.50N/07201.75W-");
    Said();
    station.time.Wait(60000);
    station.Hear("Q1ABC>APRS,WIDE1-1:!4903.50N/07201.75W-same place");
    EXPECT_EQ(store.Row(0), "Q1ABC    A!220909z4903.50N/07201.75W-same place");
    EXPECT_THAT(Said(), IsEmpty());
}

TEST_F(Positions, TheSymbolFilterNeverStopsTheOwnStationNorObjects)
{
    auto& engine = halvern.Engine;
    engine.JustSymbolsOn = true;
    engine.JustTable = "/";
    engine.JustCode = "#";
    for (const auto* line :
         {"Q0OWN>APRS,WIDE1-1:!4903.50N/07201.75W-", "Q1ABC>APRS,WIDE1-1:!4903.50N/07201.75W-",
          "Q2ABC>APRS,WIDE1-1:!4903.50N107201.75W#", "Q3ABC>APRS,WIDE1-1:;LEADER   *092345z4903.50N/07201.75W>"})
        station.Hear(line);
    EXPECT_EQ(Rows().size(), 3u);
    engine.JustTable = "/\\";
    engine.JustCode = "-s";
    station.Hear("Q1ABC>APRS,WIDE1-1:!4903.50N/07201.75W-");
    station.Hear("Q4ABC>APRS,WIDE1-1:!4903.50N/07201.75Ws");
    EXPECT_EQ(Rows().size(), 4u);
}

TEST_F(Positions, APlaceFullOfStationsStartsAgainAndTheReportIsLost)
{
    auto& store = halvern.PositionFrm.PosLst;
    station.Hear("Q0OWN>APHV01,WIDE2-2:=4049.14N/07308.41W-own", "MAP");
    while (store.Count() < 32000)
        store.Add(CallField("Q" + std::to_string(store.Count())) + " !220908z4903.50N/07201.75W-");
    station.Hear("Q0OWN>APHV01,WIDE2-2:=4049.14N/07308.41W-again");
    EXPECT_EQ(store.Count(), 1);
    EXPECT_THAT(Raw(), ElementsAre("Q0OWN>APHV01:=4049.14N/07308.41W-own"));
}

TEST_F(Positions, TheBestPathIsKept)
{
    const std::string report = ":!4903.50N/07201.75W-";
    for (const auto* path : {"Q1DIG*,Q2DIG*,WIDE2-1", "Q3DIG*,WIDE1-1"})
        station.Hear("Q1ABC>APRS," + std::string(path) + report);
    EXPECT_THAT(Paths(), ElementsAre("Q1ABC     Q3DIG*,WIDE1-1"));
    station.Hear("Q1ABC>APRS" + report);
    station.Hear("Q1ABC>APRS,Q3DIG*" + report);
    EXPECT_THAT(Paths(), ElementsAre("Q1ABC     None"));
}

std::string MicE(std::string_view destination, std::string info)
{
    MicEFields fields;
    DecodeMicE(destination, info, fields);
    if (info == "PacketNoGood") return info;
    std::string joined;
    for (std::size_t i = 1; i < fields.size(); ++i) joined += (i > 1 ? "|" : "") + fields[i];
    return joined;
}

TEST(MicE, IsDecodedByTheTableAndOurRoundings)
{
    // in the second text columns 2 to 4 longitude, 5 and 6 speed and course, 7 unread, 8 and 9 symbol
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"S32U6T", "`(_fn\"Oj/", "3325.64N|/|01207.74W|j|012/021| Returning"},
        {"S32UVT", "'(_fn\"Oj/", "3325.64N|/|11207.74W|j|012/021| Returning"},
        {"332564", "`(_fn\"Oj/", "3325.64S|/|01207.74E|j|012/021| Emergency"},
        {"A32U6T", "`(_fn\"Oj/", "0325.64N|/|01207.74W|j|012/021| ng,Custom-3"},
        {"3325LL", "`(_fn\"Oj/", "3325.  S|/|01207.74E|j|012/021| Emergency"},
        {"S32A6T", "`(_fn\"Oj/", "3320.64C|/|01207.74W|j|012/021| Returning"},
        {"PPPPPP", "`vZ\x1c\x1c\x1cOj/", "0000.00N|/|00002.00W|j|000/000| Off Duty"},
        {"PPPPPP", "`rZ\x1c\x1c!Oj/", "0000.00N|/|10602.00W|j|010/000| Off Duty"},
        {"PPPPPP", "`lZ\x1c\x1c+Oj/", "0000.00N|/|10002.00W|j|020/002| Off Duty"},
        {"PPPPPP", "`lZ\x1c\x1c\x35Oj/", "0000.00N|/|10002.00W|j|030/002| Off Duty"},
        {"M32U6T", "`(_fn\"Oj/", "PacketNoGood"},
        {"S32N6T", "`(_fn\"Oj/", "PacketNoGood"},
        {"S-2U6T", "`(_fn\"Oj/", "PacketNoGood"},
        {"S32U6", "`(_fn\"Oj/", "PacketNoGood"},
        {"S32U6T", "`(_fn\"Oj", "PacketNoGood"}};
    for (const auto& [destination, info, fields] : cases)
        EXPECT_EQ(MicE(destination, info), fields) << destination << " " << info;
}

TEST_F(Positions, AMicEReportIsStoredInPlainTextAndAnEmergencyCentresTheMap)
{
    station.Hear("Q1ABC-9>S32U6T,WIDE1-1:`(_fn\"Oj/]comment is lost");
    EXPECT_THAT(Rows(), ElementsAre("Q1ABC-9   `220908z3325.64N/01207.74Wj012/021 Returning"));
    station.Hear("Q1ABC-9>S32N6T,WIDE1-1:`(_fn\"Oj/");
    EXPECT_EQ(halvern.HeardFrm.HeardGrid.FindRow("Q1ABC-9", 1), 2);
    EXPECT_EQ(halvern.HeardFrm.HeardGrid.Cell(2, 2), "1") << "a bad one is not counted";
    station.Hear("Q1ABC>K32564,WIDE1-1:`(_fn\"Oj/"); // a custom status
    EXPECT_EQ(halvern.Map.MapRange, 1024);
    station.Hear("Q1ABC>3325VT,WIDE1-1:`(_fn\"Oj/");
    EXPECT_EQ(halvern.Map.MapRange, 2);
    EXPECT_FLOAT_EQ(halvern.Map.MapCenterLon, 112 + 7.74f / 60);
    EXPECT_EQ(halvern.Map.PrevRange, 1024);
    EXPECT_THAT(Said(), testing::Not(Contains(HasSubstr("message"))));
}

std::string Split(const char* sentence, std::int16_t wanted)
{
    Strings fields;
    SplitSentence(sentence, fields, wanted);
    std::string text = std::to_string(wanted);
    for (std::size_t i = 1; wanted != -1 && i < fields.size(); ++i) text += "|" + fields[i];
    return text;
}

TEST(Sentences, AreCutIntoFieldsTheChecksumAmongThem)
{
    EXPECT_EQ(Split("$GPGLL,4049.14,N,07308.41,W,210000,A*1C", 7), "7|$GPGLL|4049.14|N|07308.41|W|210000|A");
    for (const auto& [bad, wanted] : {std::pair{"$GPGLL,4049.14,N,07308.41,W*1C", 7},
                                      {"$GPGLL;4049.14*1C", 1},
                                      {"$GPGLL,4049.14,N", 2},
                                      {"$GPRMC,1,A,4049.14,N,07308.41,W,1000.0,0,010100,,*7C", 9}})
        EXPECT_EQ(Split(bad, static_cast<std::int16_t>(wanted)), "-1") << bad;
    EXPECT_EQ(Split("$GPRMC,1,A,4049.14,N,07308.41,W,12.5,13.5,010100,,*7C", 9),
              "9|$GPRMC|1|A|4049.14|N|07308.41|W|012|014");
    EXPECT_EQ(Split("$GPRMC,1,A,4049.14,N,07308.41,W,,359.6,010100,,*7C", 9),
              "9|$GPRMC|1|A|4049.14|N|07308.41|W|000|360");
}

TEST(Sentences, TakeTheirSymbolFromTheDestinationOrTheSsid)
{
    // table and code; a report without is dropped
    const std::tuple<const char*, const char*, std::string> cases[] = {
        {"Q1ABC-9", "GPS", "/>"}, {"Q1ABC-15", "APRS", "/v"}, {"Q1ABC", "APRS", ""},     {"Q1ABC", "GPSMV", "/>"},
        {"Q1ABC", "GPSBB", "/!"}, {"Q1ABC", "GPSBC", ""},     {"Q1ABC", "GPSAP", ""},    {"Q1ABC", "GPSOM", "/,"},
        {"Q1ABC", "GPSOD", ""},   {"Q1ABC", "GPSOD7", "7#"},  {"Q1ABC", "GPSNR", "\\:"}, {"Q1ABC", "GPSJ4", "/~"},
        {"Q1ABC", "GPSHX", "/`"}, {"Q1ABC", "GPSxx", ""},     {"Q1ABC", "GPS:", ""},     {"Q1ABC", "GPSON", "\\-"}};
    const auto report = [](const char* source, const char* dest) {
        std::string info = "$GPGLL,4049.1423,N,07308.4178,W,210000,A*1C";
        return SentenceToReport(source, dest, info) == SentenceResult::Position ? info : "";
    };
    for (const auto& [source, dest, symbol] : cases)
        EXPECT_EQ(report(source, dest),
                  symbol.empty() ? "" : "$4049.14N" + symbol.substr(0, 1) + "07308.41W" + symbol[1])
            << source << " " << dest;
    EXPECT_EQ(report("Q1ABC-16", "APRS"), "$4049.14N07308.41W");
}

TEST_F(Positions, SentencesAreFiledWithCourseAndSpeedWhereTheyHaveThem)
{
    station.Hear("Q1ABC-9>APRS,WIDE:$GPRMC,210000,A,4049.14,N,07308.41,W,12.5,088.4,010100,,*7C");
    station.Hear("Q2ABC-1>GPS,WIDE:$GPGGA,210000,4049.14,N,07308.41,W,1,05,1.5,10,M,-20,M,,*7C");
    EXPECT_THAT(Rows(),
                ElementsAre("Q1ABC-9   $220908z4049.14N/07308.41W>088/012", "Q2ABC-1   $220908z4049.14N/07308.41Wa"));
    for (const auto* info :
         {"$GPRMC,210000,V,4049.14,N,07308.41,W,12.5,088.4,010100,,*7C",
          "$GPGGA,210000,4049.14,N,07308.41,W,0,05,1.5,10,M,-20,M,,*7C", "$GPGLL,,N,07308.41,W,1,A*7C"})
        station.Hear("Q3ABC-9>APRS,WIDE:" + std::string(info));
    EXPECT_EQ(halvern.HeardFrm.HeardGrid.FindRow("Q3ABC-9", 1), NotFound);
    station.Hear("Q3ABC-9>APRS,WIDE:$GPVTG,1,2*7C");
    EXPECT_NE(halvern.HeardFrm.HeardGrid.FindRow("Q3ABC-9", 1), NotFound);
}

} // namespace
} // namespace halvern::test
