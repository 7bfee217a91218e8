// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/StationTest.h"

namespace halvern::test {
namespace {

struct PathBuilder : StationTest {
    PathBuilder() { form.Show(); }
    /// Picks entries by their place in the list, or types calls, and updates after each.
    void Build(const Strings& entries)
    {
        form.ClearCmd.Click();
        for (const auto& entry : entries) {
            if (entry.size() == 1)
                form.PathOpt.Select(entry[0] - '0');
            else
                form.PathCallTxt.SetText(entry);
            form.PathUpDateCmd.Click();
        }
    }
    AddPathForm& form = halvern.AddPathFrm;
};

TEST_F(PathBuilder, CountsHopsAndKeepsTheAliasesInTheirPlaces)
{
    const struct {
        Strings entries;
        const char* path;
        int hops, digis;
        const char* offered; // which of the five may follow
        const char* said = nullptr;
    } cases[] = {
        {{"0"}, "WIDE1-1", 1, 1, "nyyyy", "use of WIDE1-1 is not recomended"},
        {{"0", "1"}, "WIDE1-1,WIDE2-1", 3, 2, "nnyyy", "use of WIDE1-1"},
        {{"1", "1"}, "WIDE2-1,WIDE2-1", 3, 2, "ynyyy"},
        {{"1", "0"}, "WIDE2-1", 1, 1, "ynyyy", "You can only use WIDE1-1 as your first Digi."},
        {{"2", "2"}, "WIDE2-2,WIDE2-2", 4, 2, "nnnny"},
        {{"2", "2", "2"}, "WIDE2-2,WIDE2-2", 4, 2, "nnnny", "You can only use WIDE2-2 as your first or second digi"},
        {{"3"}, "WIDE3-3", 3, 1, "nnnny"},
        {{"2", "3"}, "WIDE2-2", 2, 1, "nnnny", "You can only use WIDE3-3 as your first digi"},
        {{"q0dig", "2"}, "Q0DIG,WIDE2-2", 3, 2, "nnnny"},
        {{"4"}, "", 0, 0, "yyyyy"},
        {{"Q0OWN"}, "", 0, 0, "yyyyy", "You can not enter RELAY or WIDE or TRACE or TCPIP or TCPXX"},
        {{"wide5-5"}, "", 0, 0, "yyyyy", "You can not enter RELAY"},
        {{"Q0OWN-1"}, "Q0OWN-1", 1, 1, "yyyyy"},
        {{"D1", "D2", "D3", "D4", "D5", "D6", "D7", "D8"}, "D1,D2,D3,D4,D5,D6,D7,D8", 8, 8, "yyyyy"},
        {{"D1", "D2", "D3", "D4", "D5", "D6", "D7", "D8", "D9"}, "", 0, 0, "yyyyy", "AX25 only allows 8 total."},
    };
    for (const auto& each : cases) {
        Build(each.entries);
        EXPECT_EQ(form.PathLbl.Caption(), each.path);
        EXPECT_TRUE(form.Hops == each.hops && form.Digis == each.digis) << each.path;
        for (int i = 0; i < 5; ++i) EXPECT_EQ(form.PathOpt.EntryEnabled(i), each.offered[i] == 'y') << each.path << i;
        EXPECT_THAT(testing::PrintToString(Said()), HasSubstr(each.said == nullptr ? "{}" : each.said)) << each.path;
    }
    Build({"D1"});
    EXPECT_TRUE(form.PathOpt.On(4)) << "after a call another one is expected";
    EXPECT_FALSE(form.PathUpDateCmd.Enabled());
    form.PathCallTxt.SetText("D2");
    EXPECT_TRUE(form.PathUpDateCmd.Enabled());
    form.ClearCmd.Click();
    EXPECT_TRUE(form.PathUpDateCmd.Enabled());
}

TEST_F(PathBuilder, WarnsOfManyHopsAndGivesNothingBackOnCancel)
{
    Build({"2", "2"});
    Said();
    form.OkCmd.Click();
    EXPECT_THAT(Said(), ElementsAre(HasSubstr("You are using 4 digi hops total.")));
    EXPECT_FALSE(form.Visible());
    for (const bool cancel : {true, false}) {
        form.Show();
        Build({"3"});
        cancel ? form.CancelCmd.Click() : form.OnCloseBox();
        EXPECT_TRUE(form.PathLbl.Caption().empty() && !form.Visible());
    }
    form.Unload();
    form.Show();
    EXPECT_EQ(form.Hops + form.Digis, 0);
    halvern.SetUpfrm.CallSignTxt.SetText("");
    Build({"D1"});
    EXPECT_THAT(Said(), ElementsAre(HasSubstr("You have to enter your call sign")));
    EXPECT_FALSE(form.Visible());
}

} // namespace
} // namespace halvern::test
