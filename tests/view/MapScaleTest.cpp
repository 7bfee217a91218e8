// SPDX-License-Identifier: GPL-3.0-or-later
#include "view/MapScale.h"

#include <gtest/gtest.h>

namespace halvern::test {
namespace {

TEST(MapScale, HasRoundLengthsAndFigures)
{
    for (const auto& [most, length] : {std::pair{0.19, 0.1}, {2.0, 2.0}, {499.0, 200.0}, {1e4, 1e4}, {-1.0, 0.0}})
        EXPECT_DOUBLE_EQ(RoundLength(most), length) << most;
    EXPECT_DOUBLE_EQ(RoundInNet(-9.963, 10), -10);
    EXPECT_DOUBLE_EQ(RoundInNet(33.6667 + 1e-4, 1 / 12.0), 33 + 40 / 60.0);
    EXPECT_DOUBLE_EQ(RoundInNet(33.43, 0.1), 33.43) << "nothing round is near";
    EXPECT_EQ(LatitudeFigure(-40.5), "40\u00B030'S");
    EXPECT_EQ(LatitudeFigure(0), "0\u00B0");
    EXPECT_EQ(LongitudeFigure(73 + 57.5 / 60), "73\u00B057.5'W");
    EXPECT_EQ(LongitudeFigure(190), "170\u00B0E");
    EXPECT_EQ(LongitudeFigure(-180), "180\u00B0");
    EXPECT_EQ(LongitudeFigure(9.99999), "10\u00B0W") << "as a map in whole units has it";
}

} // namespace
} // namespace halvern::test
