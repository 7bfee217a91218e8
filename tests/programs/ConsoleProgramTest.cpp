// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/wait.h>

#include <QImage>

#include "platform/qt/FolderLock.h"
#include "support/Console.h"
#include "support/StationTest.h"

namespace halvern::test {
namespace {

struct ConsoleProgram : testing::Test {
    ConsoleProgram() { LinkData(folder); }

    /// Runs the program on an application directory of its own with this input. @return its lines
    Strings Run(const std::string& options, const std::string& input)
    {
        work.Put("input", input);
        const auto file = [this](const char* name) { return " '" + work.Path() + "/" + name + "'"; };
        const auto command = "'" HALVERN_BUILD "/halvern-console' " + options + " '" + folder.Path() + "/' <" +
                             file("input") + " >" + file("output") + " 2>" + file("errors");
        status = WEXITSTATUS(std::system(command.c_str()));
        const auto output = DiskFiles().Read(work.Path() + "/output").value_or("");
        Strings lines;
        for (const auto line : LinesOf(output)) lines.emplace_back(line);
        return lines;
    }

    TemporaryFolder folder, work;
    int status = -1;
};

TEST_F(ConsoleProgram, ASimulatedStationStartsAtItsOwnTimeAndEndsWithItsInput)
{
    EXPECT_THAT(Run("--simulate", "wait 90000\npacket TNC \"Q1ABC>APRS:!4049.14N/07308.41W-\"\nget TerminalFrm\n"
                                  "rows PosLst\nquit\nnonsense"),
                ElementsAre("modal SetUpfrm", "bell", R"(TerminalFrm caption="Raw Received" enabled=yes visible=no)",
                            "PosLst count=1", R"(PosLst[0] "Q1ABC     !010001z4049.14N/07308.41W-")",
                            "closed SetUpfrm"));
    EXPECT_EQ(status, 0);
}

TEST_F(ConsoleProgram, ALiveStationLivesInRealTimeAndHasNothingSimulated)
{
    EXPECT_THAT(Run("", "wait 1\nnow \"2000-01-01 00:00:00\"\nreceive MSComm1 \"x\"\necho \"without a line end\""),
                ElementsAre("modal SetUpfrm", HasSubstr("error: "), HasSubstr("error: "), "echo \"without a line end\"",
                            "closed SetUpfrm"));
    EXPECT_EQ(status, 1);
}

TEST_F(ConsoleProgram, ALiveStationLeavesAFolderAloneThatIsInUse)
{
    FolderLock inUse(folder.Path());
    ASSERT_EQ(inUse.Take(), "");
    EXPECT_THAT(Run("", "echo \"up\""), ElementsAre(HasSubstr("message critical \"Halvern\" \"The folder ")));
    EXPECT_EQ(status, 1);
    EXPECT_THAT(Run("--simulate", "echo \"up\""), ElementsAre("modal SetUpfrm", "echo \"up\"", "closed SetUpfrm"));
}

TEST_F(ConsoleProgram, WhatWasLoggedIsInTheFileWhenTheProgramIsKilled)
{
    work.Put("input", "answer \"" + work.Path() +
                          "/day.log\"\nclick ConMdiFrm.Log\npacket TNC \"Q1ABC>APRS:>on\"\n"
                          "echo \"logged\"\n");
    const auto command = "cd '" + work.Path() +
                         "' && mkfifo words && exec 3<>words && cat input >&3 && { '" HALVERN_BUILD
                         "/halvern-console' '" +
                         folder.Path() +
                         "' <words >output 2>&1 & } && "
                         "timeout 60 sh -c 'until grep -q logged output; do sleep 0.1; done'; kill -9 $!";
    EXPECT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(DiskFiles().Read(work.Path() + "/day.log").value_or("none"), "Q1ABC>APRS:>on\r\n");
}

TEST_F(ConsoleProgram, TakesPicturesOfItsWindowsAndOfTheMapWithoutAny)
{
    folder.Put("Halvern.INI", DiskFiles().Read(DataFolder() + "/demo/Halvern.INI").value_or(""));
    const auto file = work.Path() + "/picture";
    for (const auto& [options, script] : {std::pair("--windows --simulate", "picture ConMdiFrm \"" + file + "\""),
                                          {"--simulate", "answer no\nanswer \"" + file + "\"\nclick SaveBitMapMenu"}}) {
        DiskFiles().Remove(file);
        EXPECT_THAT(Run(options, script), Not(Contains(AnyOf(HasSubstr("error"), HasSubstr("message")))));
        EXPECT_EQ(status, 0);
        const QImage picture(QString::fromStdString(file));
        EXPECT_GT(std::min(picture.width(), picture.height()), 200) << options;
        EXPECT_GT(picture.convertToFormat(QImage::Format_Indexed8).colorCount(), 5) << options << ": it is all black";
    }
}

} // namespace
} // namespace halvern::test
