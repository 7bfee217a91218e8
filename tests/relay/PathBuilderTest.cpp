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
        const char* said; // of the last message
    } cases[] = {
        {{"0"}, "WIDE1-1", 1, 1, "use of WIDE1-1 is not recomended"},
        {{"0", "1"}, "WIDE1-1,WIDE2-1", 3, 2, "use of WIDE1-1"},
        {{"1"}, "WIDE2-1", 1, 1, nullptr},
        {{"1", "1"}, "WIDE2-1,WIDE2-1", 3, 2, nullptr},
        {{"1", "0"}, "WIDE2-1", 1, 1, "You can only use WIDE1-1 as your first Digi."},
        {{"2", "2"}, "WIDE2-2,WIDE2-2", 4, 2, nullptr},
        {{"2", "2", "2"}, "WIDE2-2,WIDE2-2", 4, 2, "You can only use WIDE2-2 as your first or second digi"},
        {{"3"}, "WIDE3-3", 3, 1, nullptr},
        {{"2", "3"}, "WIDE2-2", 2, 1, "You can only use WIDE3-3 as your first digi"},
        {{"q0dig", "2"}, "Q0DIG,WIDE2-2", 3, 2, nullptr},
        {{"4"}, "", 0, 0, nullptr},
        {{"Q0OWN"}, "", 0, 0, "You can not enter RELAY or WIDE or TRACE or TCPIP or TCPXX"},
        {{"wide5-5"}, "", 0, 0, "You can not enter RELAY"},
        {{"Q0OWN-1"}, "Q0OWN-1", 1, 1, nullptr},
        {{"D1", "D2", "D3", "D4", "D5", "D6", "D7", "D8"}, "D1,D2,D3,D4,D5,D6,D7,D8", 8, 8, nullptr},
        {{"D1", "D2", "D3", "D4", "D5", "D6", "D7", "D8", "D9"}, "", 0, 0, "AX25 only allows 8 total."},
    };
    for (const auto& each : cases) {
        Build(each.entries);
        EXPECT_EQ(form.PathLbl.Caption(), each.path);
        EXPECT_EQ(form.Hops, each.hops) << each.path;
        EXPECT_EQ(form.Digis, each.digis) << each.path;
        const auto said = Said();
        if (each.said == nullptr)
            EXPECT_THAT(said, IsEmpty()) << each.path;
        else
            EXPECT_THAT(said, Contains(HasSubstr(each.said))) << each.path;
    }
}

TEST_F(PathBuilder, OffersOnlyWhatMayFollow)
{
    const auto offered = [&] {
        std::string text;
        for (int i = 0; i < form.PathOpt.Count(); ++i) text += form.PathOpt.EntryEnabled(i) ? 'y' : 'n';
        return text;
    };
    const std::pair<Strings, const char*> cases[] = {{{}, "yyyyy"},    {{"0"}, "nyyyy"}, {{"1"}, "ynyyy"},
                                                     {{"2"}, "nnnny"}, {{"3"}, "nnnny"}, {{"D1"}, "yyyyy"}};
    for (const auto& [entries, expected] : cases) {
        Build(entries);
        EXPECT_EQ(offered(), expected);
    }
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
    for (const auto leave : {0, 1}) {
        form.Show();
        Build({"3"});
        leave == 0 ? form.CancelCmd.Click() : form.OnCloseBox();
        EXPECT_EQ(form.PathLbl.Caption(), "");
        EXPECT_FALSE(form.Visible());
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
