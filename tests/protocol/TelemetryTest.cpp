// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include "protocol/Telemetry.h"

namespace halvern::test {
namespace {

TEST(Telemetry, IsToldByTheNamesThatWereHeard)
{
    TelemetryBook book;
    EXPECT_TRUE(book.Take("Q1ABC>APRS:T#001,100,2,,4,5,01comment"));
    EXPECT_TRUE(book.Take("Q2-9>APRS:T#MIC7,8"));
    EXPECT_TRUE(book.Take("Q3A>APRS:T#5,abc,1e30,-,99999999999,7,1"));
    EXPECT_TRUE(book.Take("Q1ABC>APRS::Q3A      :EQNS.x,,nan,1, 2,0,0,x,0,0,1e308,0,0,y,9"));
    EXPECT_TRUE(book.Take("Q1ABC>APRS:T#002,124,21,-3,0,5,10100000"));
    for (const auto* definition :
         {"PARM.Battery,Temp,,,,Door", "UNIT.V,C,,,,open", "EQNS.0,0.1,0,0,1,-10", "BITS.01111111,x"})
        EXPECT_TRUE(book.Take(std::string("Q1ABC>APRS::Q1ABC    :") + definition));
    for (const auto* other : {"Q1ABC>APRS:!4049.14N", "Q1ABC>APRS::Q1ABC    :PARM", "T#1,2", ">:T#1,2", "Q1ABC>APRS:T#",
                              "Q1ABC>APRS:T#7,, ,", ""})
        EXPECT_FALSE(book.Take(other)) << other;
    std::vector<std::string> lines;
    for (const auto& line : book.Lines()) lines.push_back(line.call + " " + line.number + " " + line.words);
    EXPECT_THAT(lines, testing::ElementsAre(
                           "Q1ABC 002 Battery 12.4 V, Temp 11 C, 3: -3, 4: 0, 5: 5; Door off, B2 off, B3 on, "
                           "B4 off, B5 off, B6 off, B7 off, B8 off",
                           "Q1ABC 001 Battery 10 V, Temp -8 C, 4: 4, 5: 5",
                           "Q3A 5 1: abc, 2: 1e30, 3: -, 4: 99999999999, 5: 16; B1 on", "Q2-9 MIC 1: 7, 2: 8"));
    for (int i = 0; i < 600; ++i) book.Take("Q" + std::to_string(1000 + i) + ">APRS:T#1,1");
    for (int i = 0; i < 30; ++i) book.Take("Q1ABC>APRS:T#9,1");
    EXPECT_EQ(book.Lines().size(), 20 + 499u);
}

} // namespace
} // namespace halvern::test
