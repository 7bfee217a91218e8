// SPDX-License-Identifier: GPL-3.0-or-later
#include "view/Ground.h"

#include <gtest/gtest.h>

namespace halvern::test {
namespace {

TEST(Ground, TellsHowFarWhichWayAndInWhichSquare)
{
    EXPECT_NEAR(GroundDistance({40, 73}, {41, 73}), 60.04, 0.01);
    EXPECT_NEAR(GroundDistance({0, 179.5}, {0, -179.5}), 60.04, 0.01); // over the date line
    EXPECT_NEAR(GroundDistance({90, 0}, {-90, 50}), 10807.3, 0.1);     // half way round
    EXPECT_NEAR(GroundBearing({51.5, 0}, {40.7, 74}), 288.3, 0.5);     // London to New York by the great circle
    EXPECT_NEAR(GroundBearing({0, 179}, {0, -179}), 270, 1e-9);
    EXPECT_STREQ(CompassPoint(337.4), "NW");
    EXPECT_STREQ(CompassPoint(337.6), "N");
    // Munich, Montevideo, Washington and Wellington, as operators' handbooks have them; the corners; what is no place
    EXPECT_EQ(Maidenhead({48.14666, -11.60833}), "JN58td");
    EXPECT_EQ(Maidenhead({-34.91, 56.21166}), "GF15vc");
    EXPECT_EQ(Maidenhead({38.92, 77.065 + 360}), "FM18lw");
    EXPECT_EQ(Maidenhead({-41.28333, -174.745}), "RE78ir");
    EXPECT_EQ(Maidenhead({90, 180}), "AR09ax");
    EXPECT_EQ(Maidenhead({-90, -180}), "AA00aa");
    EXPECT_EQ(Maidenhead({91, 0}), "");
    EXPECT_EQ(PlaceInWords({}, {91, 0}), "");
    EXPECT_EQ(PlaceInWords(GroundPoint{40, 73}, {40, 72.8}), "FN30oa  9.2 nm 17.0 km  090\u00B0");
    EXPECT_EQ(PlaceInWords(GroundPoint{40, 73}, {41, 73.0001 + 360}), "FN31la  60.0 nm 111 km  000\u00B0");
}

} // namespace
} // namespace halvern::test
