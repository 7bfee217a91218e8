// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/StartUp.h"
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

TEST_F(FirstRun, EveryFaultHasItsMessageInTheOrderOfTheForm)
{
    const std::string first = " under the Station Tab First.";
    const std::tuple<std::string, TextField&, const char*> steps[] = {
        // what is wrong, and what the operator does then
        {"You have to enter a Call Sign" + first, setUp.CallSignTxt, "Q,1"},
        {"A Comma in a Call Sign is not allowed", setUp.CallSignTxt, "Q1ABC"},
        {"You have to enter Degrees Of Latitude" + first, setUp.LatDegtxt, "x1"},
        {"Degrees of Latitude must be expressed in numbers.", setUp.LatDegtxt, "4"},
        {"Degrees of Latitude must be two digits long. If your Degrees of Lattitude", setUp.LatDegtxt, "91"},
        {"Degrees of Latitude cannot be more than 90.", setUp.LatDegtxt, "90"},
        {"You have to enter Minutes Of Latitude" + first, setUp.LatMintxt, "60"},
        {"Minutes of Latitude cannot be more than 59.", setUp.LatMintxt, "59"},
        {"You have to enter Decimal Minutes Of Latitude" + first, setUp.LatDectxt, "1"},
        {"Decimal Minutes of Latitude must be two digits long.", setUp.LatDectxt, "14"},
        {"You have to enter Hemisphere Of Latitude" + first, setUp.LatSigntxt, "w"},
        {"Hemisphere Of Latitude must be expressed as a 'N' or 'S'", setUp.LatSigntxt, "n"},
        {"You have to enter Degrees Of Longitude" + first, setUp.LonDegtxt, "75"},
        {"Degrees of Longitude must be three digits long. If your Degrees of Longitude", setUp.LonDegtxt, "181"},
        {"Degrees of Longitude cannot be more than 180.", setUp.LonDegtxt, "075"},
        {"You have to enter Minutes Of Longitude" + first, setUp.LonMintxt, "8"},
        {"Minutes of Longitude must be two digits long.", setUp.LonMintxt, "08"},
        {"You have to enter a Decimal Minutes Of Longitude" + first, setUp.LonDectxt, "-4"},
        {"Decimal Minutes Of Longitude must be expressed in numbers.", setUp.LonDectxt, "41"},
        {"You have to enter Hemisphere Of Longitude" + first, setUp.LonSigntxt, "WW"},
        {"Hemisphere Of Longitude must be expressed as a 'W' or 'E'", setUp.LonSigntxt, "e"},
        {"You have to enter a Position Comment" + first, setUp.CommentTXT, "c"},
        {"You have to enter a Status Comment" + first, setUp.StatusTXT, "s"}};
    auto& mailPath = halvern.MessageFrm.MailUnPath;
    setUp.UnPath.Preselect(-1);
    mailPath.Preselect(-1);
    StartAnd([&] {
        const auto refused = [&](const std::string& words) {
            Said();
            setUp.TabOkCmd.Click();
            EXPECT_THAT(Said(), ElementsAre(StartsWith("message none \"Halvern\" \"" + words)));
            EXPECT_TRUE(setUp.Visible());
        };
        for (const auto& [words, field, remedy] : steps) {
            refused(words);
            field.SetText(remedy);
        }
        refused(" You have to chose an Unproto path on the setup tab.");
        setUp.UnPath.Preselect(0);
        refused(" You have to chose a Mail Unproto path on the Message Window under the Send tab.");
        mailPath.Preselect(1);
        setUp.TabOkCmd.Click();
        EXPECT_FALSE(setUp.Visible());
    });
    EXPECT_EQ(setUp.Latlbl.Caption() + setUp.Lonlbl.Caption(), "9059.14N07508.41E");
}

} // namespace
} // namespace halvern::test
