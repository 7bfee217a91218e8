// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/StartUp.h"
#include "protocol/PositionField.h"
#include "support/StationTest.h"

namespace halvern::test {
namespace {

/// A station that is set up, with the setup form open.
struct Setup : TemporaryFolder, StationTest {
    Setup() : StationTest((Put("dosmaps/usa.map", ""), Put("APRSDomain.INI", " \r\n \r\n \r\na\r\n"), Path())) {}

    void SetUp() override
    {
        station.dialogs.RunModal = [this](Form&) {
            station.SetUp();
            setUp.TabOkCmd.Click();
        };
        StartProgram(halvern);
        main.SetupMenu.Click();
        Said();
    }
    void Answer(std::initializer_list<const char*> texts)
    {
        for (const auto* text : texts) station.dialogs.Answers.push_back({text, false});
    }
    /// What the station says to a click, its quotes and titles left out.
    Strings SaidAt(Button& button)
    {
        Said();
        button.Click();
        return Said();
    }
};

TEST_F(Setup, CancelPutsTheValuesBackAndLeavesTheLists)
{
    setUp.CallSignTxt.SetText("Q9X");
    setUp.SSIDLBL.SetNumber(7);
    setUp.SymbolCombo.Preselect(3);
    setUp.UnPath.Add("Q1DIG");
    setUp.UnPath.Click(2);
    setUp.GpsOpt.Select(0);
    setUp.WxSourceOpt.Select(1);
    setUp.AprsMode.Select(1);
    setUp.IntDomainCombo.SetText("typed");
    setUp.Dir1.SetPath("/");
    setUp.TimeOpt.Select(9);
    setUp.AltNetTxt.SetText("kept");
    setUp.TabCancelCmd.Click();
    EXPECT_FALSE(setUp.Visible());
    EXPECT_EQ(setUp.CallSignTxt.Text() + setUp.SSIDLBL.Caption(), "Q0OWN0");
    EXPECT_EQ(setUp.SymbolCombo.Text() + setUp.UnPath.Text(), "House VHF /-NONE");
    EXPECT_EQ(setUp.UnPath.Count(), 3) << "the new path stays in the list";
    EXPECT_TRUE(setUp.GpsOpt.On(1) && setUp.PhgPowerLst.Enabled() && !setUp.GpsPortLst.Enabled());
    EXPECT_TRUE(setUp.WxSourceOpt.On(0) && setUp.ComWxFrame.Enabled());
    EXPECT_EQ(halvern.Engine.OwnDest, "APHV01");
    EXPECT_EQ(setUp.IntDomainCombo.Text() + setUp.AltNetTxt.Text(), "kept");
    EXPECT_EQ(setUp.Dir1.Path() + setUp.File1.Text(), Path() + "APRSDomain.INI");
    EXPECT_EQ(setUp.TimeOpt.Selected(), 4);
}

TEST_F(Setup, PortsThatClashAreToldAndTheGpsGoesOff)
{
    const std::tuple<int, int, int, const char*, bool> cases[] = {
        {0, 0, 1, "Your Weather station com port and your TNC com port", true},
        {1, 0, 1, "Your Weather station com port and your GPS com port", false},
        {5, 1, 1, "GPS com port and your TNC com port", false},
        {5, 0, 1, "You have to open up at least one of the following ports first", false}};
    for (const auto& [wxPort, tncPort, gpsPort, words, open] : cases) {
        setUp.WXPortCombo.Select(wxPort);
        setUp.PortLst.Select(tncPort);
        setUp.GpsPortLst.Select(gpsPort);
        setUp.GpsOpt.Select(0);
        EXPECT_THAT(SaidAt(setUp.TabOkCmd), ElementsAre(HasSubstr(words)));
        EXPECT_TRUE(setUp.Visible() && !main.GpsMenu.Enabled());
        EXPECT_EQ(setUp.GpsOpt.On(0), open) << words;
    }
    // saving asks the same and switches nothing off
    setUp.GpsOpt.Select(0);
    setUp.WXPortCombo.Select(1);
    EXPECT_THAT(SaidAt(setUp.TabSaveCmd), ElementsAre(HasSubstr("Weather station com port and your GPS com port")));
    EXPECT_TRUE(setUp.GpsOpt.On(0) && setUp.Visible());
    EXPECT_FALSE(halvern.Outside.files.Exists(Path() + "/Halvern.INI"));
    setUp.WXPortCombo.Select(5);
    main.MSComm1.Open();
    setUp.GpsOpt.Select(0);
    setUp.TabOkCmd.Click();
    EXPECT_TRUE(halvern.Engine.GpsPositionOn && main.GpsMenu.Enabled() && !setUp.Visible());
}

TEST_F(Setup, ChangedDataGoOutAtOnceWhereAPortIsOpen)
{
    auto& timer = main.Timer2;
    const auto accept = [&](const char* status) {
        setUp.StatusTXT.SetText(status);
        timer.Stop();
        setUp.TabOkCmd.Click();
        main.SetupMenu.Click();
        return timer.Running();
    };
    EXPECT_FALSE(accept("no port is open"));
    main.PortTnc.SetChecked(true);
    setUp.TncTypeCombo.Select(2); // own packets don't show it
    EXPECT_FALSE(accept("no port is open")) << "nothing has changed";
    EXPECT_TRUE(accept("news"));
    EXPECT_EQ(timer.Interval(), 1);
    main.WeatherMenu.SetChecked(true);
    EXPECT_FALSE(accept("the weather station sends"));
}

TEST_F(Setup, ListsAreKeptByTheirButtons)
{
    setUp.UnPath.SetText("Q1DIG");
    EXPECT_THAT(Said(), ElementsAre(HasSubstr("Please use Add button to Add a path.")));
    EXPECT_EQ(setUp.UnPath.Text(), "NONE");
    EXPECT_THAT(SaidAt(setUp.DeleteCom), ElementsAre(HasSubstr("You Cannot Delete this item.")));
    station.dialogs.RunModal = [this](Form& form) {
        halvern.AddPathFrm.PathLbl.SetCaption("Q1DIG");
        form.Hide();
    };
    setUp.AddCom.Click();
    setUp.UnPath.Click(2);
    EXPECT_EQ(setUp.UnPath.Text(), "Q1DIG");
    setUp.DeleteCom.Click();
    EXPECT_EQ(setUp.UnPath.Count(), 2);
    EXPECT_THAT(SaidAt(setUp.DeleteCom), ElementsAre(HasSubstr("You must click on an Unproto Path item")));
    EXPECT_THAT(SaidAt(setUp.TabOkCmd), ElementsAre(HasSubstr("You have to chose an Unproto path")));
    setUp.UnPath.Select(0);
    halvern.MessageFrm.MailUnPath.Preselect(-1);
    EXPECT_THAT(SaidAt(setUp.TabOkCmd), ElementsAre(HasSubstr("You have to chose a Mail Unproto path")));
    while (setUp.UnPath.Count() < 20) setUp.UnPath.Add("Q1DIG");
    EXPECT_THAT(SaidAt(setUp.AddCom), ElementsAre(HasSubstr("You may not have more than 20 paths total.")));

    EXPECT_THAT(SaidAt(setUp.ChangeGrp), ElementsAre(HasSubstr("a Message Group item before clicking on the Change")));
    Answer({"", "skywarn"});
    setUp.AddGrp.Click();
    setUp.MsgGroupLst.Select(0);
    setUp.ChangeGrp.Click();
    EXPECT_THAT(Rows(setUp.MsgGroupLst), ElementsAre("SKYWARN", "CQ", "QST"));
    setUp.DeleteGrp.Click();
    EXPECT_THAT(Rows(setUp.MsgGroupLst), ElementsAre("CQ", "QST"));

    const std::tuple<List&, Button&, Button&> callers[] = {{setUp.IgateBudsCombo, setUp.BudsAddCmd, setUp.BudsDelCmd},
                                                           {setUp.WxMessCombo, setUp.WxAddCmd, setUp.WxDelCmd}};
    for (const auto& [list, add, remove] : callers) {
        remove.SetEnabled(true);
        remove.Click();
        Answer({"Q1A", "q1a", "Q1A"});
        add.Click();
        add.Click();
        EXPECT_EQ(list.Text(), "q1a");
        EXPECT_THAT(SaidAt(add), ElementsAre(HasSubstr("ADD IGATE Buddies"), HasSubstr("Q1A Is already in your ")));
        remove.Click();
        EXPECT_EQ(list.Text(), "Q1A");
    }
}

TEST_F(Setup, SwitchesEnableWhatBelongsToThem)
{
    setUp.AprsMode.Select(2);
    EXPECT_TRUE(setUp.AltNetTxt.Enabled());
    EXPECT_THAT(SaidAt(setUp.TabOkCmd), ElementsAre(HasSubstr("You have activated the Alternet text box")));
    setUp.AltNetTxt.SetText("QNET");
    setUp.MyAliasOpt.Select(1);
    EXPECT_THAT(Said(), ElementsAre(HasSubstr("NOTE failure to follow the above recomendations")));
    setUp.TabOkCmd.Click();
    EXPECT_EQ(halvern.Engine.OwnDest + setUp.MyAlias, "QNETWIDE1-1");
    setUp.AprsMode.Select(0);
    EXPECT_TRUE(halvern.Engine.OwnDest == "APHV01" && !setUp.AltNetTxt.Enabled());
    setUp.IgateOpt.Select(1);
    setUp.IgateBIOpt.Select(1);
    for (auto* control : setUp.GatingControls()) EXPECT_TRUE(control->Enabled()) << control->Name();
    setUp.IgateOpt.Select(0);
    EXPECT_TRUE(setUp.IgateBIOpt.On(0) && !setUp.IgateBIOpt.Enabled() && !setUp.WxDelCmd.Enabled());
}

TEST_F(Setup, TheWeatherFileIsFoundByItsFolders)
{
    EXPECT_EQ(setUp.Drive1.Text(), "/");
    EXPECT_THAT(Rows(setUp.Dir1), ElementsAre("..", "dosmaps"));
    setUp.Dir1.Click(1);
    EXPECT_EQ(setUp.File1.Path(), Path() + "/dosmaps");
    EXPECT_THAT(Rows(setUp.File1), ElementsAre("usa.map"));
    setUp.WxSourceOpt.Select(1);
    EXPECT_THAT(SaidAt(setUp.TabOkCmd), ElementsAre(HasSubstr("No Third Party WX Software file is selected.")));
    setUp.Dir1.Click(0);
    EXPECT_EQ(setUp.Dir1.Path(), Path());
    setUp.Drive1.Add("/no such drive");
    setUp.Drive1.Click(setUp.Drive1.Count() - 1);
    EXPECT_THAT(Said(), Contains(HasSubstr("No such file or directory")));
    EXPECT_EQ(setUp.Drive1.Text(), "/");
}

TEST_F(Setup, AFontGoesToAllListsAndFieldsOfAForm)
{
    main.FontMenu.Click();
    halvern.FontFrm.FormOpt.Select(9);
    Answer({"Sans,8.25"});
    EXPECT_THAT(SaidAt(halvern.FontFrm.FontOkCmd), ElementsAre("input \"Pick Your Font\" \"Font\" \"Monospace,9\""));
    EXPECT_EQ(halvern.FindFrm.FindDigiTxt.Font(), (Font{"Sans", 8.25}));
    EXPECT_EQ(halvern.PositionFrm.ShPosLst.Font(), (Font{"Monospace", 9}));
    halvern.FontFrm.FormOpt.Select(4);
    Answer({"Sans,20"});
    halvern.FontFrm.FontOkCmd.Click();
    EXPECT_EQ(halvern.HeardFrm.HeardGrid.Font(), (Font{"Sans", 20}));
}

TEST_F(Setup, TheEndClosesPortsAndLeavesNoSnapshot)
{
    Put("Pos.txt", "rows");
    Put("Status.txt", "rows");
    main.MSComm1.Open();
    main.SoundSoc.Connect();
    main.PressCloseBox();
    EXPECT_TRUE(halvern.Engine.Ended && !main.MSComm1.IsOpen() && !main.SoundSoc.Connected() && !main.Visible());
    EXPECT_FALSE(halvern.Outside.files.Exists(Path() + "/Pos.txt"));
    EXPECT_TRUE(halvern.Outside.files.Exists(Path() + "/Status.txt"));
    EXPECT_THAT(Said(), IsEmpty());
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
