// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ConsoleSession.h"

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
    const std::string lines = R"(nonsense
"get"
get
get FindFrm.Nothing
get CallSignTxt
get FindFrm.FindPosTxt more
set FindFrm.FindPosTxt
set FindFrm.FindPosTxt Q1ABC
set FindFrm.FindPosTxt "bad \q escape"
set FindFrm.FindPosTxt "\x4"
set FindFrm.FindPosTxt "no end
set FindFrm.FindPosTxt "a"b
set FindFrm.GoToCmd "a"
set SSIDLBL "16"
set SSIDLBL "-1"
set SSIDLBL "1x"
set SetUpfrm.PortLst "Com17"
key FindFrm.FindPosTxt 0
key FindFrm.FindPosTxt 256
select SetUpfrm.PortLst 16
select SetUpfrm.PortLst -2
select SetUpfrm.DeadOnOpt 2
select SetUpfrm.DeadOnOpt -1
select FindFrm.FindPosTxt 0
mark SetUpfrm.PortLst 0
mark KillMsgFrm.KillLst 0
click FindFrm.FindPosTxt
click ConMdiFrm.CgiFinduMenu
click ConMdiFrm.MoveMyObjMenu
close FindFrm
close FindFrm.GoToCmd
receive MSComm1 "x"
sent FindFrm
refuse MSComm1 x "no"
hangup MSComm1
hangup InternetSoc
answer maybe
now "2000-02-30 00:00:00"
now "2000-01-01 0:00:00 "
wait -1
wait 1.5
mouse press 1 2 left
mouse down 1 2 middle
mouse move 1 nan
symbol move 7
plot -1
drawn MapFrm.Pic2
drawn FindFrm
rows FindFrm.FindPosTxt
eval Nothing
eval PathHopCount
eval PathHopCount "a" "b"
eval SymbolFileName "a" 47
replay TNC "no such file"
packet TNC
picture FindFrm "a.png"
echo plain
quit now)";
    for (const auto view : LinesOf(lines)) {
        const std::string line(view);
        const auto played = CarryOut(station, {line});
        EXPECT_THAT(played.answers, ElementsAre(StartsWith("error: "))) << line;
        EXPECT_EQ(played.status, 1) << line;
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

TEST_F(ConsoleSessionTest, AControlIsFoundByItsNameAndAnsweredUnderTheNameAsTyped)
{
    EXPECT_THAT(Answers({"get ConMdiFrm.MSComm1", "get MSComm1", "get ConMdiFrm.FrmMenu(7)", "get PosLst",
                         "get FindFrm", "get SSTab2", "get Timer1", "get StatusBar1", "get HeardGrid", "get Slider1"}),
                ElementsAre("ConMdiFrm.MSComm1 open=no", "MSComm1 open=no",
                            R"(ConMdiFrm.FrmMenu(7) caption="&Raw Packets" checked=no enabled=yes visible=yes)",
                            R"(PosLst text="" count=0 selected=-1 enabled=yes visible=yes)",
                            R"(FindFrm caption="Find Call Sign" enabled=yes visible=no)",
                            "SSTab2 selected=0 enabled=yes visible=yes", "Timer1 interval=0 enabled=no",
                            R"(StatusBar1 caption="" enabled=yes visible=yes)",
                            "HeardGrid count=2 enabled=yes visible=yes", "Slider1 value=0 enabled=yes visible=yes"));
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
    const auto answers = Answers({"set SetUpfrm.PortLst \"Com3\"", "select SetUpfrm.DeadOnOpt 1", "set SSIDLBL \"9\"",
                                  "set ObjectNameTxt \"abcdefghijk\"", "set MessageFrm.MailUnPath \"DIGI\"",
                                  "set CreateObjectsFrm.ObjectCourselbl \"45\""});
    EXPECT_THAT(answers, ElementsAre());
    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(setUp.PortLst.Selected(), 2);
    EXPECT_EQ(setUp.SSIDLBL.Caption(), "9");
    EXPECT_EQ(halvern.CreateObjectsFrm.ObjectNameTxt.Text(), "abcdefghi");
    EXPECT_EQ(halvern.MessageFrm.MailUnPath.Text(), "DIGI");
    EXPECT_EQ(halvern.MessageFrm.MailUnPath.Selected(), -1);
    EXPECT_EQ(halvern.CreateObjectsFrm.ObjectCourselbl.Caption(), "045");
    Answers({"select SetUpfrm.PortLst -1"});
    EXPECT_EQ(setUp.PortLst.Selected(), -1);
}

TEST_F(ConsoleSessionTest, MarkingLeavesExactlyTheseRowsMarked)
{
    auto& list = halvern.KillMsgFrm.KillLst;
    for (const auto* row : {"a", "b", "c"}) list.Add(row);
    Answers({"mark KillLst 0 1", "mark KillLst 2 1"});
    EXPECT_EQ((std::vector{list.Marked(0), list.Marked(1), list.Marked(2)}), (std::vector{false, true, true}));
}

TEST_F(ConsoleSessionTest, LinesActWhileAModalFormIsUp)
{
    auto& form = halvern.FindFrm;
    halvern.ConMdiFrm.FindCallSignMenu.OnClick = [&] { station.dialogs.ShowModal(form); };
    form.FindCloseCmd.OnClick = [&] { form.Hide(); };
    EXPECT_THAT(Answers({"click FindCallSignMenu", "get FindFrm", "click FindFrm.FindCloseCmd", "get FindFrm"}),
                ElementsAre("modal FindFrm", R"(FindFrm caption="Find Call Sign" enabled=yes visible=yes)",
                            "closed FindFrm", R"(FindFrm caption="Find Call Sign" enabled=yes visible=no)"));
    EXPECT_THAT(Answers({"click FindCallSignMenu", "close FindFrm", "echo \"\""}),
                ElementsAre("modal FindFrm", "closed FindFrm", "echo \"\""));
    EXPECT_THAT(Answers({"click FindCallSignMenu"}), ElementsAre("modal FindFrm", "closed FindFrm")); // no more lines
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
    EXPECT_THAT(Answers({"answer \"queued\"", click}), ElementsAre(asked));
    EXPECT_THAT(Answers({click, "", "# remark", "answer \"\""}), ElementsAre(asked));
    EXPECT_THAT(Answers({click, "answer cancel"}), ElementsAre(asked));
    EXPECT_THAT(Answers({click, "echo \"another line\""}), ElementsAre(asked, "echo \"another line\""));
    EXPECT_THAT(Answers({click, "answer bad"}), ElementsAre(asked, StartsWith("error: ")));
    EXPECT_THAT(Answers({click}), ElementsAre(asked));
    EXPECT_THAT(Answers({press, "answer yes", press, "answer no", press, "answer cancel", press}),
                ElementsAre(question, question, question, question));
    EXPECT_THAT(given,
                ElementsAre("queued", "", "cancelled", "cancelled", "cancelled", "cancelled", "0", "1", "2", "2"));
}

TEST_F(ConsoleSessionTest, TimePassesOnlyWhenTold)
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
    EXPECT_EQ(station.time.LocalTime(), (Moment{2010, 6, 1, 12, 0, 10}));
    Answers({"wait 1"});
    EXPECT_EQ(station.time.LocalTime().second, 11);
    EXPECT_EQ(ticks, "fast11 ");
    Answers({"wait 10000"});
    EXPECT_EQ(ticks, "fast11 slow12 slow15 slow18 "); // of two that are due together the one started first
}

TEST_F(ConsoleSessionTest, TimeNeverRunsBackWhenAHandlerWaits)
{
    halvern.ConMdiFrm.Timer2.OnTick = [&] {
        halvern.ConMdiFrm.Timer2.Stop();
        station.dialogs.LetTimePass(5000);
    };
    halvern.ConMdiFrm.Timer2.Start(1000);
    Answers({"wait 2000"});
    EXPECT_EQ(station.time.Elapsed(), 6000);
}

TEST_F(ConsoleSessionTest, BytesArriveAsOneEventAndWritesAreToldOnce)
{
    auto& socket = halvern.ConMdiFrm.InternetSoc;
    socket.OnReceive = [&] { socket.Write("got " + socket.ReadAll()); };
    EXPECT_THAT(Answers({"receive InternetSoc \"x\""}), ElementsAre(StartsWith("error: ")));
    socket.Connect();
    socket.OnDisconnect = [&] { halvern.Tell(Icon::Information, "gone"); };
    EXPECT_THAT(Answers({"receive InternetSoc \"a\\r\\nb\"", "receive InternetSoc \"\\xc0\"", "sent InternetSoc",
                         "sent InternetSoc", "hangup InternetSoc", "get InternetSoc"}),
                ElementsAre(R"(InternetSoc "got a\r\nb")", R"(InternetSoc "got \xC0")",
                            R"(message information "Halvern" "gone")", "InternetSoc open=no"));
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
    map.SetFrame({100, 50, 90, 40});
    map.Point(95, 45, 2);
    map.LineTo(94.25, 44, 2);
    map.Box(1, 2, 3, 4, 15);
    map.Circle(1, 2, 0.1, 4);
    map.Picture(halvern.ProgramFolder + "\\bitmap\\a.bmp", 3, 4);
    EXPECT_THAT(Answers({"drawn MapFrm.Map1", "drawn Map1", "drawn Pic1"}),
                ElementsAre("MapFrm.Map1 clear", "MapFrm.Map1 frame 100,50 90,40", "MapFrm.Map1 point 95,45 2",
                            "MapFrm.Map1 line 94.25,44 2", "MapFrm.Map1 box 1,2 3,4 15", "MapFrm.Map1 circle 1,2 0.1 4",
                            R"(MapFrm.Map1 picture "bitmap/a.bmp")"));
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
