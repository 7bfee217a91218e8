// SPDX-License-Identifier: GPL-3.0-or-later
// A mobile on its way, told by what its operator does and by what another station's operator sees.
#include <cstdio>

#include "support/Console.h"
#include "support/StationTest.h"

namespace halvern::test {
namespace {

/// One second's output of a receiver that goes north-west, a hundredth of a minute a second each way.
std::string OutputAt(int second)
{
    const double north = 49.1410 + second * 0.01, west = 8.4110 + second * 0.01;
    std::string output;
    for (const auto* form : {"$GPGGA,12%02d%02d,40%07.4f,N,073%07.4f,W,1,07,1.1,12.0,M,-34.0,M,,*4E\r\n",
                             "$GPGSA,A,3,10,07,05,02,29,04,08,,,,,,1.7,1.1,1.4*3%02d%02d\r\n",
                             "$GPRMC,12%02d%02d,A,40%07.4f,N,073%07.4f,W,45.2,322.9,010100,012.8,W*7A\r\n"}) {
        char text[200];
        std::snprintf(text, sizeof text, form, second / 60, second % 60, north, west);
        output += text;
    }
    return output;
}

/// What somebody does at a station's console, and what it answers.
Strings Operate(Station& station, const Strings& lines)
{
    const auto played = CarryOut(station, lines);
    EXPECT_EQ(played.status, 0) << testing::PrintToString(played.answers);
    return played.answers;
}

TEST(Drive, OfAMobileIsSeenOnTheMapOfAnotherStation)
{
    Station car, base;
    car.SetUp();
    car.SetCall("Q0CAR");
    base.SetUp();
    base.Hear("Q0OWN>APHV01:=4049.14N/07308.41W-", "MAP");
    auto &atCar = car.halvern.ConMdiFrm, &atBase = base.halvern.ConMdiFrm;
    Operate(base, {"click ConMdiFrm.PortTnc"});
    Operate(car, {"set SetUpfrm.SymbolCombo \"Car />\"", "click ConMdiFrm.PortTnc", "click ConMdiFrm.SetupMenu",
                  "select SetUpfrm.GpsOpt 0", "set SetUpfrm.GpsPortLst \"Com3\"",
                  "set SetUpfrm.GpsPortSpeedLst \"4800\"", "set SetUpfrm.GpsSendTimeLst \"1 Min\"",
                  "set SetUpfrm.GpsSentanceLst \"GPRMC\"", "click SetUpfrm.TabOkCmd", "click ConMdiFrm.GpsMenu"});
    Strings seen;
    for (int second = 0; second < 4 * 60; ++second) {
        car.time.Wait(second == 0 ? 1 : 1000);
        base.time.Wait(1000);
        if (atCar.GpsCom.IsOpen()) atCar.GpsCom.Arrived(OutputAt(second));
        for (const auto& frame : car.SentBy(atCar.MSComm1)) {
            atBase.MSComm1.Arrived(frame);
            if (!Holds(LineOfFrame(frame), ":=")) continue;
            seen.push_back(base.halvern.PositionFrm.PosLst.Row(1));
            seen.push_back(Operate(base, {"plot 1"})[0]);
        }
    }
    // a report each 65 seconds; a mark on the map in the colour of stations that move
    const struct {
        const char *row, *plot;
    } reports[] = {
        {"Q0CAR     =010000z4049.14N/07308.41W>323/045 own", "plot 1 lat=40.8190002 lon=73.1401672 colour=7 "},
        {"Q0CAR     =010001z4049.79N/07309.06W>323/045 own", "plot 1 lat=40.829834 lon=73.151001 colour=3 "},
        {"Q0CAR     =010002z4050.44N/07309.71W>323/045 own", "plot 1 lat=40.8406677 lon=73.1618347 colour=3 "},
        {"Q0CAR     =010003z4051.09N/07310.36W>323/045 own", "plot 1 lat=40.8515015 lon=73.1726685 colour=3 "}};
    ASSERT_EQ(seen.size(), 2 * std::size(reports));
    for (std::size_t i = 0; i < std::size(reports); ++i) {
        EXPECT_EQ(seen[2 * i], reports[i].row);
        EXPECT_THAT(seen[2 * i + 1], StartsWith(std::string(reports[i].plot) + "caption=\"Q0CAR\" shown=yes"));
    }
    EXPECT_THAT(Station::Rows(base.halvern.StatusFrm.StatusLst), Contains(HasSubstr("Q0CAR     >here")));
}

} // namespace
} // namespace halvern::test
