// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/StartUp.h"
#include "protocol/PositionField.h"
#include "support/StationTest.h"

namespace halvern::test {
namespace {

/// A folder with the least that a first run asks for.
struct FirstRun : testing::Test {
    TemporaryFolder folder;
    Station station{(folder.Put("dosmaps/usa.map", ""), folder.Path())};
    Strings Said() { return station.TakeSaid(); }
    Halvern& halvern = station.halvern;
    SetUpForm& setUp = halvern.SetUpfrm;

    /// Starts the program; the operator does this while the setup form is up.
    void StartAnd(const std::function<void()>& operate)
    {
        station.dialogs.RunModal = [&](Form&) { operate(); };
        StartProgram(halvern);
    }
};

TEST_F(FirstRun, OkWithAFilledStationTabBringsTheMapUp)
{
    StartAnd([&] {
        EXPECT_FALSE(setUp.TabSaveCmd.Enabled() || halvern.MapFrm.Visible());
        setUp.OnCloseBox();
        EXPECT_TRUE(setUp.Visible()) << "the only way out is OK";
        station.SetUp();
        setUp.TabOkCmd.Click();
    });
    auto& main = halvern.ConMdiFrm;
    EXPECT_TRUE(main.MapMenu.Visible() && main.WindowMenu.Visible());
    EXPECT_EQ(main.FrmState[1], "True");
    EXPECT_TRUE(setUp.TabCancelCmd.Enabled() && setUp.TabSaveCmd.Enabled());
    EXPECT_TRUE(main.dMapTxt.Visible() && !main.BitMapCombo.Visible() && main.ScaleCombo.Visible());
    EXPECT_FALSE(halvern.Engine.ConfigLoaded);
    EXPECT_THAT(Station::Rows(setUp.MsgGroupLst), ElementsAre("ALL", "CQ", "QST"));
    Said();
    main.OnActivate(); // again
    EXPECT_THAT(Said(), IsEmpty());
}

TEST(FirstRunWithoutMaps, SaysWhatIsMissingAndEnds)
{
    const TemporaryFolder folder;
    Station station(folder.Path());
    StartProgram(station.halvern);
    EXPECT_THAT(station.TakeSaid(),
                ElementsAre(StartsWith("message stop \"Halvern\" \"Dos Map Data is missing. The following directory "
                                       "structure is not found " +
                                       folder.Path() + "\\\\Dosmaps")));
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
