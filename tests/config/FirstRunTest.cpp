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
    struct Step {
        std::string message;
        std::function<void()> remedy;
    };
    auto put = [](TextField& field, const char* text) { return [&field, text] { field.SetText(text); }; };
    const std::string first = " under the Station Tab First.";
    const Step steps[] = {
        {"You have to enter a Call Sign" + first, put(setUp.CallSignTxt, "Q,1")},
        {"A Comma in a Call Sign is not allowed", put(setUp.CallSignTxt, "Q1ABC")},
        {"You have to enter Degrees Of Latitude" + first, put(setUp.LatDegtxt, "x1")},
        {"Degrees of Latitude must be expressed in numbers.", put(setUp.LatDegtxt, "4")},
        {"Degrees of Latitude must be two digits long. If your Degrees of Lattitude has one digit then please add a "
         "zero in the front of it.",
         put(setUp.LatDegtxt, "91")},
        {"Degrees of Latitude cannot be more than 90.", put(setUp.LatDegtxt, "90")},
        {"You have to enter Minutes Of Latitude" + first, put(setUp.LatMintxt, "60")},
        {"Minutes of Latitude cannot be more than 59.", put(setUp.LatMintxt, "59")},
        {"You have to enter Decimal Minutes Of Latitude" + first, put(setUp.LatDectxt, "1")},
        {"Decimal Minutes of Latitude must be two digits long. If your Decimal Minutes of Lattitude has one digit "
         "then please add a zero in the front of it.",
         put(setUp.LatDectxt, "14")},
        {"You have to enter Hemisphere Of Latitude" + first, put(setUp.LatSigntxt, "w")},
        {"Hemisphere Of Latitude must be expressed as a 'N' or 'S'", put(setUp.LatSigntxt, "n")},
        {"You have to enter Degrees Of Longitude" + first, put(setUp.LonDegtxt, "75")},
        {"Degrees of Longitude must be three digits long. If your Degrees of Longitude has two or less digits then "
         "please add a zero(s) in the front of it.",
         put(setUp.LonDegtxt, "181")},
        {"Degrees of Longitude cannot be more than 180.", put(setUp.LonDegtxt, "075")},
        {"You have to enter Minutes Of Longitude" + first, put(setUp.LonMintxt, "8")},
        {"Minutes of Longitude must be two digits long. If your Minutes of Longitude has one digit then please add a "
         "zero in the front of it.",
         put(setUp.LonMintxt, "08")},
        {"You have to enter a Decimal Minutes Of Longitude" + first, put(setUp.LonDectxt, "-4")},
        {"Decimal Minutes Of Longitude must be expressed in numbers.", put(setUp.LonDectxt, "41")},
        {"You have to enter Hemisphere Of Longitude" + first, put(setUp.LonSigntxt, "WW")},
        {"Hemisphere Of Longitude must be expressed as a 'W' or 'E'", put(setUp.LonSigntxt, "e")},
        {"You have to enter a Position Comment" + first, put(setUp.CommentTXT, "c")},
        {"You have to enter a Status Comment" + first, put(setUp.StatusTXT, "s")},
        {" You have to chose an Unproto path on the setup tab.", [&] { setUp.UnPath.Preselect(0); }},
        {" You have to chose a Mail Unproto path on the Message Window under the Send tab.",
         [&] { halvern.MessageFrm.MailUnPath.Preselect(1); }},
    };
    setUp.UnPath.Preselect(-1);
    halvern.MessageFrm.MailUnPath.Preselect(-1);
    StartAnd([&] {
        Said();
        for (const auto& step : steps) {
            setUp.TabOkCmd.Click();
            EXPECT_THAT(Said(), ElementsAre("message none \"Halvern\" \"" + step.message + "\""));
            EXPECT_TRUE(setUp.Visible());
            step.remedy();
        }
        setUp.TabOkCmd.Click();
        EXPECT_FALSE(setUp.Visible());
    });
    EXPECT_EQ(setUp.Latlbl.Caption(), "9059.14N");
    EXPECT_EQ(setUp.Lonlbl.Caption(), "07508.41E");
}

} // namespace
} // namespace halvern::test
