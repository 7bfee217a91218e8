// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ConsoleSession.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "config/StartUp.h"
#include "support/Console.h"

namespace halvern::test {
namespace {

using ::testing::ElementsAre;
using ::testing::StartsWith;

struct ConsoleSessionTest : ::testing::Test {
    std::vector<std::string> Answers(const std::vector<std::string>& lines) { return CarryOut(station, lines).answers; }
    Station station;
    Halvern& halvern = station.halvern;
};

TEST_F(ConsoleSessionTest, ALineThatCannotBeCarriedOutIsToldAndChangesNothing)
{
    halvern.FindFrm.FindPosTxt.SetText("before");
    for (const char* line : {"nonsense",
                             "\"get\"",
                             "get",
                             "get FindFrm.Nothing",
                             "get CallSignTxt",
                             "get FindFrm.FindPosTxt more",
                             "set FindFrm.FindPosTxt",
                             "set FindFrm.FindPosTxt Q1ABC",
                             "set FindFrm.FindPosTxt \"bad \\q escape\"",
                             "set FindFrm.FindPosTxt \"\\x4\"",
                             "set FindFrm.FindPosTxt \"no end",
                             "set FindFrm.FindPosTxt \"a\"b",
                             "set FindFrm.GoToCmd \"a\"",
                             "set SSIDLBL \"16\"",
                             "set SSIDLBL \"-1\"",
                             "set SSIDLBL \"1x\"",
                             "set SetUpfrm.PortLst \"Com17\"",
                             "key FindFrm.FindPosTxt 0",
                             "key FindFrm.FindPosTxt x",
                             "key FindFrm.FindPosTxt 256",
                             "select SetUpfrm.PortLst 16",
                             "select SetUpfrm.PortLst -2",
                             "select SetUpfrm.DeadOnOpt 2",
                             "select SetUpfrm.DeadOnOpt -1",
                             "select FindFrm.FindPosTxt 0",
                             "mark SetUpfrm.PortLst 0",
                             "mark KillMsgFrm.KillLst 0",
                             "click FindFrm.FindPosTxt",
                             "click ConMdiFrm.CgiFinduMenu",
                             "click ConMdiFrm.MoveMyObjMenu",
                             "close FindFrm",
                             "close FindFrm.GoToCmd",
                             "receive MSComm1 \"x\"",
                             "receive FindFrm \"x\"",
                             "sent FindFrm",
                             "refuse MSComm1 x \"no\"",
                             "hangup MSComm1",
                             "hangup InternetSoc",
                             "answer maybe",
                             "answer",
                             "now \"2000-02-30 00:00:00\"",
                             "now \"2000-01-01 0:00:00 \"",
                             "wait -1",
                             "wait",
                             "wait 1.5",
                             "mouse press 1 2 left",
                             "mouse move 1",
                             "mouse down 1 2 middle",
                             "mouse move 1 nan",
                             "symbol move 7",
                             "plot -1",
                             "drawn MapFrm.Pic2",
                             "drawn FindFrm",
                             "rows FindFrm.FindPosTxt",
                             "eval Nothing",
                             "eval PathHopCount",
                             "eval PathHopCount \"a\" \"b\"",
                             "eval SymbolFileName \"a\" 47",
                             "replay TNC \"no such file\"",
                             "packet TNC",
                             "picture FindFrm \"a.png\"",
                             "echo plain",
                             "quit now"}) {
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

} // namespace
} // namespace halvern::test
