// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/StartUp.h"
#include "protocol/PositionField.h"
#include "support/StationTest.h"

namespace halvern::test {
namespace {

TEST(FirstRun, WithoutMapsSaysWhatIsMissingAndEnds)
{
    const TemporaryFolder folder;
    Station station(folder.Path());
    StartProgram(station.halvern);
    EXPECT_THAT(station.TakeSaid(),
                ElementsAre(AllOf(StartsWith("message stop \"Halvern\" \"Dos Map Data is missing. "),
                                  HasSubstr("is not found " + folder.Path() + "\\\\Dosmaps"))));
    EXPECT_TRUE(station.halvern.Engine.Ended);
    EXPECT_FALSE(station.halvern.ConMdiFrm.Visible());
}

TEST(PositionFields, TakeWhatCanStandInAPacket)
{
    const struct {
        const char* name;
        Strings good, bad;
    } fields[] = {{"Degrees of Latitude", {"00", "90"}, {"91", "9", "x1"}},
                  {"Minutes of Latitude", {"00", "59"}, {"60", "5", "-5"}},
                  {"Decimal Minutes Of Latitude", {"00", "99"}, {"1", "100", "1."}},
                  {"Hemisphere Of Latitude", {"N", "S"}, {"W", "n", "NN"}},
                  {"Degrees of Longitude", {"000", "180"}, {"181", "75", "x75"}},
                  {"Minutes of Longitude", {"00", "59"}, {"60", "8", "0x"}},
                  {"Decimal Minutes Of Longitude", {"00", "99"}, {"1", "100", "-4"}},
                  {"Hemisphere Of Longitude", {"W", "E"}, {"N", "e", "WW"}}};
    for (const auto& [name, good, bad] : fields) {
        for (const auto& text : good) EXPECT_EQ(PositionFieldFault(text, name), "") << name;
        for (const auto& text : bad) EXPECT_THAT(PositionFieldFault(text, name), testing::Not("")) << name << text;
    }
}

} // namespace
} // namespace halvern::test
