// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/StationCard.h"
#include "protocol/UtcTime.h"
#include "support/StationTest.h"

namespace halvern::test {
namespace {

struct StationCards : StationTest {
    /// Name of the symbol, then the lines, each behind its word.
    Strings Card(const std::string& call)
    {
        PlaceNames places(halvern.Outside.files, R"(places\none.dat)");
        const auto card = CardOf(halvern, halvern.PositionFrm.PosLst.Find(CallField(call)), places);
        Strings all{card.symbol};
        for (const auto& [word, text] : card.lines) all.push_back(word + (": " + text));
        return all;
    }
};

TEST_F(StationCards, TellInWordsWhatTheStoresHold)
{
    station.time.SetUtc({2010, 6, 1, 0, 30, 0});
    station.Hear(halvern.Engine.OwnCall + ">APRS:=4056.00N/07300.00W-");
    for (const char* line :
         {"Q1HOM>APRS,Q1DIG*,WIDE2*,WIDE3-1,qAR,Q1GAT:!4100.00N/07300.00W-PHG5132Hilltop",
          "Q1HOM>APRS,Q1DIG*,WIDE2*,WIDE3-1,qAR,Q1GAT:>312345zMonitoring 144.39",
          "Q1CAR-9>APRS,WIDE1-1:@312315z4000.00N/07230.00W>088/036 on the road",
          "Q1WXS>APRS,TCPIP*,qAC,T2X:@010029z4000.00N/07330.00W_225/004g010t050r002p001h00b10132",
          "Q1TWO>APRS:!4000.00N/07330.00W_no figures", "Q1TWO>APRS:_06010030c000s000g000t032h50b09875",
          "Q1OVL>APRS:!4000.00NR07330.00W&", "Q1COD>APRS:!4000.00N/07330.00W1"})
        station.Hear(line);
    EXPECT_THAT(Card("Q1HOM"),
                ElementsAre("House VHF", "Heard: just now, 2 times", "From here: 4 nm (7.4 km), 0° (N)",
                            "Place: FN31ma", "Antenna: 25 W, 20 ft (6 m) above the terrain, 3 dB gain, towards 90° (E)",
                            "Path: by Q1DIG > WIDE2, gate Q1GAT", "Status: Monitoring 144.39", "Comment: Hilltop"));
    EXPECT_THAT(Card("Q1CAR-9"),
                ElementsAre("Car", "Heard: 1 h 15 min ago, once", HasSubstr("From here"), "Place: FN30sa",
                            "Moves: 88° (E), 36 kn (67 km/h)", "Path: direct", "Comment: on the road"));
    EXPECT_THAT(
        Card("Q1WXS"),
        ElementsAre("Weather Station Home", "Heard: 1 min ago, once", HasSubstr("From here"), "Place: FN30ga",
                    "Weather: 50 °F (10 °C), wind 225° (SW) 4 mph (6 km/h), gusts 10 mph (16 km/h), rain 0.02 in "
                    "(0.5 mm) an hour, 100 % humidity, 1013.2 mbar",
                    "Path: Internet, gate T2X"));
    EXPECT_THAT(Card("Q1TWO"), Contains("Weather: 32 °F (0 °C), calm, 50 % humidity, 987.5 mbar"));
    EXPECT_EQ(Card("Q1OVL").front(), "Igate R");
    EXPECT_EQ(Card("Q1COD").front(), "");
    EXPECT_THAT(Card("Q1NOT"), ElementsAre(""));
}

TEST(Ages, GoBackLessThanAMonth)
{
    const Moment now{2011, 3, 1, 12, 0, 0};
    const struct {
        const char *stamp, *age;
    } cases[] = {{"011200", "now"},     {"011130", "30 min"}, {"010855", "3 h 5 min"}, {"281200", "1 d"},
                 {"280900", "1 d 3 h"}, {"011300", "now"},    {"021200", "27 d"}};
    for (const auto& [stamp, age] : cases) EXPECT_EQ(AgeInWords(MinutesSince(stamp, now).value()), age) << stamp;
    for (const char* none : {"", "0112", "321200", "012400", "011x00", "001200"})
        EXPECT_FALSE(MinutesSince(none, now)) << none;
}

} // namespace
} // namespace halvern::test
