// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/console/ConsoleSession.h"

#include "support/Console.h"
#include "support/StationTest.h"

namespace halvern::test {
namespace {

struct ConsoleSessionTest : testing::Test {
    Strings Answers(const Strings& lines) { return CarryOut(station, lines).answers; }
    Station station;
    Halvern& halvern = station.halvern;
};

TEST_F(ConsoleSessionTest, ALineThatCannotBeCarriedOutIsToldAndChangesNothing)
{
    halvern.FindFrm.FindPosTxt.SetText("before");
    const std::string field = "FindFrm.FindPosTxt ";
    const std::pair<const char*, Strings> bad[] = {
        {"nonsense", {""}},
        {"\"get\"", {""}},
        {"get", {"", "FindFrm.Nothing", "CallSignTxt", field + "more"}},
        {"set", {field, field + "Q1ABC", field + R"("bad \q escape")", field + R"("\x4")", field + R"("no end)"}},
        {"set", {field + R"("a"b)", "FindFrm.GoToCmd \"a\"", "SetUpfrm.PortLst \"Com17\""}},
        {"set SSIDLBL", {R"("16")", R"("-1")", R"("1x")"}},
        {"key", {field + "0", field + "256"}},
        {"select", {"SetUpfrm.PortLst 16", "SetUpfrm.PortLst -2", "SetUpfrm.DeadOnOpt 2", "SetUpfrm.DeadOnOpt -1"}},
        {"select", {field + "0"}},
        {"mark", {"SetUpfrm.PortLst 0", "KillMsgFrm.KillLst 0"}},
        {"click", {field, "ConMdiFrm.CgiFinduMenu", "ConMdiFrm.MoveMyObjMenu"}},
        {"close", {"FindFrm", "FindFrm.GoToCmd"}},
        {"receive", {R"(MSComm1 "x")", R"(InternetSoc "x")"}},
        {"refuse", {R"(MSComm1 x "no")"}},
        {"hangup", {"MSComm1", "InternetSoc"}},
        {"answer", {"maybe"}},
        {"now", {R"("2000-02-30 00:00:00")", R"("2000-01-01 0:00:00 ")"}},
        {"wait", {"-1", "1.5"}},
        {"mouse", {"press 1 2 left", "down 1 2 middle", "move 1 nan"}},
        {"symbol", {"move 7"}},
        {"plot", {"-1"}},
        {"sent", {"FindFrm"}},
        {"drawn", {"MapFrm.Pic2", "FindFrm"}},
        {"rows", {field}},
        {"eval", {"Nothing", "PathHopCount", R"(PathHopCount "a" "b")", R"(SymbolFileName "a" 47)"}},
        {"replay", {R"(TNC "no such file")"}},
        {"packet", {"TNC"}},
        {"picture", {R"(FindFrm "a.png")"}},
        {"echo", {"plain"}},
        {"quit", {"now"}}};
    for (const auto& [command, rests] : bad)
        for (const auto& rest : rests) {
            const auto played = CarryOut(station, {command + (" " + rest)});
            EXPECT_THAT(played.answers, ElementsAre(StartsWith("error: "))) << command << " " << rest;
            EXPECT_EQ(played.status, 1);
        }
    EXPECT_EQ(halvern.FindFrm.FindPosTxt.Text(), "before");
    EXPECT_EQ(halvern.SetUpfrm.SSIDLBL.Caption(), "0");
    EXPECT_FALSE(halvern.Engine.Ended);
}

TEST_F(ConsoleSessionTest, WhatWasDrawnIsToldInOrderAndForgotten)
{
    auto& map = halvern.MapFrm.Map1;
    map.Clear();
    map.Point(95, 45, 2);
    map.Picture(halvern.ProgramFolder + "\\bitmap\\a.bmp", 3, 4);
    EXPECT_THAT(Answers({"drawn MapFrm.Map1", "drawn Map1", "drawn Pic1"}),
                ElementsAre("MapFrm.Map1 clear", "MapFrm.Map1 point 95,45 2", R"(MapFrm.Map1 picture "bitmap/a.bmp")"));
}

TEST(ConsoleRunTest, TheStationEndsWithItsInputOrAtAWord)
{
    for (const char* last : {"echo \"end\"", "quit", "close ConMdiFrm"}) {
        const TemporaryFolder folder;
        LinkData(folder);
        Station ended(folder.Path());
        auto played = Play(ended, {last, "nonsense behind the end"});
        EXPECT_TRUE(ended.halvern.Engine.Ended) << last;
        EXPECT_EQ(played.status, std::string(last).starts_with("echo") ? 1 : 0) << last;
    }
}

} // namespace
} // namespace halvern::test
