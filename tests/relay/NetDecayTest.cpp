// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/StationTest.h"

namespace halvern::test {
namespace {

struct NetDecay : StationTest {
    NetDecay()
    {
        station.time.SetUtc({2026, 5, 1, 22, 30, 0});
        station.OpenTnc();
        main.Timer2.Stop();
    }
    /// Calls that are killed in their rows.
    Strings Retired() const
    {
        Strings calls;
        for (const auto& row : Rows(halvern.PositionFrm.PosLst))
            if (row[9] == 'X') calls.emplace_back(TrimmedRight(row.substr(0, 9)));
        return calls;
    }
    void Minutes(int minutes) { station.time.Wait(minutes * 60000); }
};

TEST_F(NetDecay, RetiresStationsAfterTwoHoursOverMidnightToo)
{
    for (const char* line : {"Q0AAA>APRS:!4903.50N/07201.75W-", "Q0BBB>APRS:=4903.50N/07201.75W-",
                             "Q0CCC>APRS:@012230z4903.50N/07201.75W-",
                             "Q0DDD>APRS:;OBJECT   *012230z4903.50N/07201.75W-", "Q0AAA>APRS:>a status"})
        station.Hear(line);
    Minutes(4);
    station.Hear("Q0BBB>APRS:=4903.50N/07201.75W-");
    EXPECT_THAT(Retired(), IsEmpty());
    Minutes(113); // 00:27
    EXPECT_THAT(Retired(), IsEmpty());
    Minutes(4); // one look in four minutes: 5, 9, ... 121
    EXPECT_THAT(Retired(), ElementsAre("Q0AAA"));
    EXPECT_FALSE(halvern.Map.StationPlot[0].Shown);
    EXPECT_FALSE(halvern.MapFrm.SymPic(0).visible);
    EXPECT_FALSE(halvern.MapFrm.SymLbl(0).visible);
    EXPECT_THAT(Raw(), SizeIs(4)) << "its raw rows are gone";
    Minutes(4);
    EXPECT_THAT(Retired(), ElementsAre("Q0AAA", "Q0BBB"));
    station.Hear("Q0AAA>APRS:!4903.50N/07201.75W-");
    EXPECT_TRUE(halvern.Map.StationPlot[0].Shown) << "heard again";
    Minutes(60 * 24);
    EXPECT_TRUE(main.NetDecayTmr.Running());
    main.PortTnc.Click();
    EXPECT_FALSE(main.NetDecayTmr.Running());
}

} // namespace
} // namespace halvern::test
