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

TEST_F(ConsoleSessionTest, AQuietLineIsSkippedAndTheRestIsAnswered)
{
    EXPECT_THAT(Answers({"", "   ", "# remark \"", "echo \"a\\\"b\\\\\\x07\\r\\n\\t\\xff\"", "  echo   \"\" \r"}),
                ElementsAre(R"(echo "a\"b\\\x07\r\n\t\xFF")", "echo \"\""));
}

TEST_F(ConsoleSessionTest, TypingRunsTheRulesForKeysForChangesAndForLeaving)
{
    auto& field = halvern.MessageFrm.SendCallTxt;
    std::string events;
    field.OnKey = [&](int& key) { key = key == '.' ? 0 : key - 32; };
    field.OnChange = [&] { events += field.Text() + ","; };
    field.OnEnter = [&] { events += "enter,"; };
    field.OnLeave = [&] { events += "leave"; };
    Answers({"set SendCallTxt \"a.b\""});
    EXPECT_EQ(events, "enter,A,AB,leave");
    events.clear();
    Answers({"set SendCallTxt \"q\"", "key SendCallTxt 98", "key SendCallTxt 100"});
    EXPECT_EQ(events, "enter,,Q,leaveQB,QBD,");
}

TEST_F(ConsoleSessionTest, ListsChoicesAndNumbersTakeWhatTheyHave)
{
    auto& setUp = halvern.SetUpfrm;
    int clicks = 0;
    setUp.PortLst.OnClick = setUp.DeadOnOpt.OnClick = [&] { ++clicks; };
    EXPECT_THAT(Answers({"set SetUpfrm.PortLst \"Com3\"", "select SetUpfrm.DeadOnOpt 1", "set SSIDLBL \"9\"",
                         "set ObjectNameTxt \"abcdefghijk\"", "set CreateObjectsFrm.ObjectCourselbl \"45\""}),
                IsEmpty());
    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(setUp.PortLst.Text() + setUp.SSIDLBL.Caption(), "Com39");
    EXPECT_EQ(halvern.CreateObjectsFrm.ObjectNameTxt.Text(), "abcdefghi");
    EXPECT_EQ(halvern.CreateObjectsFrm.ObjectCourselbl.Caption(), "045");
    Answers({"select SetUpfrm.PortLst -1"});
    EXPECT_EQ(setUp.PortLst.Selected(), -1);
}

TEST_F(ConsoleSessionTest, AQuestionTakesAQueuedAnswerOrTheNextLine)
{
    Strings given;
    auto& dialogs = station.dialogs;
    halvern.FindFrm.GoToCmd.OnClick = [&] { given.push_back(dialogs.Input("Who?", "T", "me").value_or("cancelled")); };
    halvern.FindFrm.FindCloseCmd.OnClick = [&] {
        given.push_back(std::to_string(static_cast<int>(dialogs.Question("Well?", "T"))));
    };
    const std::string click = "click FindFrm.GoToCmd", asked = R"(input "T" "Who?" "me")";
    const std::string press = "click FindFrm.FindCloseCmd", question = R"(question "T" "Well?")";
    const std::pair<Strings, Strings> sessions[] = {
        {{"answer \"queued\"", click}, {asked}},
        {{click, "", "# remark", "answer \"\""}, {asked}},
        {{click, "answer cancel"}, {asked}},
        {{click, "echo \"another line\""}, {asked, "echo \"another line\""}},
        {{click}, {asked}},
        {{press, "answer yes", press, "answer no", press, "answer cancel", press}, Strings(4, question)}};
    for (const auto& [lines, answers] : sessions) EXPECT_EQ(Answers(lines), answers);
    EXPECT_THAT(Answers({click, "answer bad"}), ElementsAre(asked, StartsWith("error: ")));
    EXPECT_THAT(given,
                ElementsAre("queued", "", "cancelled", "cancelled", "cancelled", "0", "1", "2", "2", "cancelled"));
}

TEST_F(ConsoleSessionTest, TimePassesOnlyWhenToldAndNeverRunsBack)
{
    std::string ticks;
    auto& slow = halvern.ConMdiFrm.Timer2;
    auto& fast = halvern.ConMdiFrm.GpsTimer;
    const auto seconds = [&] { return std::to_string(station.time.LocalTime().second) + " "; };
    slow.OnTick = [&] {
        ticks += "slow" + seconds();
        fast.Stop();
    };
    fast.OnTick = [&] { ticks += "fast" + seconds(); };
    slow.Start(3000);
    fast.Start(1500);
    Answers({"wait 500", "now \"2010-06-01 12:00:10\"", "wait 999"});
    EXPECT_EQ(ticks, "");
    Answers({"wait 1", "wait 10000"});
    EXPECT_EQ(ticks, "fast11 slow12 slow15 slow18 "); // of two that are due together the one started first
    slow.OnTick = [&] {
        slow.Stop();
        station.dialogs.LetTimePass(5000);
    };
    const auto start = station.time.Elapsed();
    slow.Start(1000);
    Answers({"wait 2000"});
    EXPECT_EQ(station.time.Elapsed() - start, 6000) << "a handler waited";
}

TEST_F(ConsoleSessionTest, AHandlerThatFailsIsAMessageAndNoError)
{
    halvern.FindFrm.GoToCmd.OnClick = [] { throw RuntimeFailure(failure::Overflow, "Overflow"); };
    const auto played = CarryOut(station, {"click FindFrm.GoToCmd", "echo \"on\""});
    EXPECT_THAT(played.answers, ElementsAre(R"(message critical "Halvern" "Error # 6 Overflow")", "echo \"on\""));
    EXPECT_EQ(played.status, 0);
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
