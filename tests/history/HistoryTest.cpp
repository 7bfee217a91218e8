// SPDX-License-Identifier: GPL-3.0-or-later

#include <csignal>

#include <sys/resource.h>
#include <zlib.h>

#include "engine/ProcessPacket.h"
#include "platform/Text.h"
#include "platform/simulated/FaultyFiles.h"
#include "protocol/RecordedLine.h"
#include "support/MapStation.h"
#include "support/StationTest.h"

namespace halvern::test {
namespace {

const Strings BusyHour{"Q1ABC>APRS,WIDE1-1*,WIDE2-1:!4049.14N/07308.41W-home",
                       "Q2CAR-9>APRS:=4100.00N/07400.00W>123/045a car",
                       "Q2CAR-9>APRS:=4101.00N/07400.00W>123/045a car, moved",
                       "Q1ABC>APRS:>a status",
                       "Q3WX>APRS:@211812z4903.50N/07201.75W_220/004g005t077r000p000P000h50b09900wx",
                       "Q3WX>APRS:;BALLOON  *011200z4200.00N/07500.00WOan object",
                       "Q1ABC>APRS::Q0OWN    :hello{12",
                       "Q1ABC>APRS::Q2CAR-9  :between others{3",
                       "Q1ABC>APRS::BLN1     :a bulletin",
                       "Q4DX>RESORC:a resource"};

const Strings OwnLines{"Q0OWN>APHV01:=4049.14N/07308.41W-PHG5130 own", "Q0OWN>APHV01:>on the air"};

/// A station over a folder of its own, in which logs and the kept state lie.
struct History : TemporaryFolder, StationTest {
    History() : StationTest(Path())
    {
        for (const auto* name : {"symbols", "dosmaps", "maplist"})
            std::filesystem::create_directory_symlink(DataFolder() + "/" + name, Path() + "/" + name);
        HearAll(OwnLines, "MAP");
        halvern.TerminalFrm.RawPacketLst.Clear();
    }

    void HearAll(const Strings& lines, std::string_view tag = "TNC")
    {
        for (const auto& line : lines) station.Hear(line, tag);
    }
    /// Presses it, and answers with a file of the folder. @return what was said
    Strings Click(MenuItem& item, const std::filesystem::path& name)
    {
        Said();
        station.dialogs.Answers.push_back({(folder / name).string()});
        item.Click();
        return Said();
    }
    Strings Import(const std::filesystem::path& name) { return Click(main.ImportLog, name); }
    std::string FileOf(const std::string& name) { return station.files.Read(Path() + "/" + name).value_or("none"); }
    bool Kept() { return station.files.Exists(Path() + "/Pos.txt"); }
    std::size_t FilesLeft() { return station.files.Names(Path()).size(); }
    Strings Stations()
    {
        Strings calls;
        for (const auto& row : Rows(halvern.PositionFrm.PosLst)) calls.emplace_back(TrimmedRight(Columns(row, 1, 9)));
        return calls;
    }
    Strings Filter(const char* row)
    {
        Said();
        main.JustMenu.Click();
        halvern.JustSym.SymbolLst.Preselect(halvern.JustSym.SymbolLst.IndexOf(row));
        halvern.JustSym.OkCmd.Click();
        return Said();
    }

    const std::filesystem::path folder = Path();
};

TEST_F(History, ABusyHourIsLoggedPlayedBackAndRestored)
{
    Click(main.Log, "day.log");
    EXPECT_EQ(main.Log.Caption(), "&Stop Log");
    HearAll(BusyHour);
    main.MyObjectLst.Add(";MINE     an object");
    main.TransmitLst.Add("5");
    form.OutMsg.Add(":Q1ABC    unproto APHV01 via NONE:text{7");
    form.Timer1.Start(60000);
    main.Log.Click();
    const auto before = StoresOf(halvern);
    const auto plots = halvern.Map.StationPlot.size();
    EXPECT_EQ(LinesOf(FileOf("day.log")).size(), BusyHour.size());
    EXPECT_THAT(FileOf("day.log"), HasSubstr("wx010000"));
    EXPECT_THAT(Import("day.log"), Contains(HasSubstr("please Click on the Restore Menu Item.")));
    EXPECT_THAT(Stations(), ElementsAre("Q0OWN", "Q1ABC", "Q2CAR-9", "Q3WX", "BALLOON"));
    EXPECT_TRUE(main.RestoreMenu.Visible() && !main.LogMenu.Enabled() && !main.ClearMenu.Enabled() && Kept());
    EXPECT_EQ(main.MyObjectLst.Count(), 0);
    EXPECT_FALSE(form.Timer1.Enabled());

    main.RestoreMenu.Click();
    EXPECT_EQ(StoresOf(halvern), before);
    EXPECT_EQ(halvern.Map.StationPlot.size(), plots);
    EXPECT_EQ(halvern.Map.StationPlot.back().Color, colour::Magenta) << "another's object, as before";
    EXPECT_THAT(Rows(main.MyObjectLst), ElementsAre(";MINE     an object"));
    EXPECT_EQ(form.OutMsg.Count(), 1);
    EXPECT_TRUE(form.Timer1.Enabled() && form.Timer1.Interval() == 60000);
    EXPECT_TRUE(!main.RestoreMenu.Visible() && main.LogMenu.Enabled() && main.ClearMenu.Enabled() && !Kept());
    EXPECT_EQ(FilesLeft(), 1u) << "only the log";
}

TEST_F(History, ASecondViewKeepsTheFirstState)
{
    HearAll(BusyHour);
    station.Hear("Q1ABC>APRS:;BALLOON  _011200z4200.00N/07500.00WOkilled");
    auto kept = Stations();
    std::erase(kept, "BALLOON");
    Put("one.log", "Q5ONE>APRS:!4049.14N/07308.41W-\r\n");
    Put("two.log", "Q6TWO>APRS:!4049.14N/07308.41W-\n");
    Put("empty.log", "");
    Import("one.log");
    Import("two.log");
    EXPECT_THAT(Stations(), ElementsAre("Q0OWN", "Q6TWO"));
    Import("empty.log");
    EXPECT_THAT(Stations(), ElementsAre("Q0OWN"));
    main.RestoreMenu.Click();
    EXPECT_EQ(Stations(), kept) << "all but the killed object";
}

TEST_F(History, ALogIsPlayedIntoACrowdAndTheCrowdComesBack)
{
    std::string log;
    station.dialogs.Say = nullptr;
    for (int i = 0; i < 20000; ++i) {
        const auto call = "Q" + std::to_string(10000 + i), place = ZeroFilled(1 + i % 179, 3) + "08.41W-";
        station.Hear(call + ">APRS,WIDE1-1*:!4049.14N/" + place);
        if (i % 9 == 0) log += call + ">APRS:=4149.14N\\" + place + "\n" + call + "-9>APRS:>a status\n";
    }
    const auto before = StoresOf(halvern);
    Put("crowd.log", log);
    Import("crowd.log");
    EXPECT_EQ(halvern.PositionFrm.PosLst.Count(), 2224);
    EXPECT_EQ(halvern.StatusFrm.StatusLst.Count(), 2224);
    main.RestoreMenu.Click();
    EXPECT_EQ(StoresOf(halvern), before);
}

TEST_F(History, AFullDiskLeavesTheListsAsTheyAre)
{
    FaultyFiles full(station.files);
    Halvern other({station.time, station.dialogs, full}, Path());
    ConnectHandlers(other);
    for (auto line : BusyHour) ProcessPacket(other, line, "TNC");
    const auto before = StoresOf(other);
    Put("one.log", "Q5ONE>APRS:!4049.14N/07308.41W-\r\n");
    for (const std::size_t room : {0, 40, 400}) {
        full.SetRoom(room);
        EXPECT_THAT(Click(other.ConMdiFrm.ImportLog, "one.log"),
                    Contains(HasSubstr("No space left on device. They are as they were.")));
        EXPECT_EQ(StoresOf(other), before);
        EXPECT_FALSE(other.Engine.ReviewMode || other.ConMdiFrm.RestoreMenu.Visible());
        EXPECT_EQ(FilesLeft(), 1u) << "nothing but the log";
    }
}

TEST_F(History, WhatCanBeReadOfADamagedStateComesBack)
{
    HearAll(BusyHour);
    Put("one.log", "Q5ONE>APRS:!4049.14N/07308.41W-\r\n");
    Import("one.log");
    Put("Pos.txt", "Q0OWN     the own row\r\nQ1ABC     =010000z4049.14N/07308.41W-good\r\nQ2\r\n\r\n"
                   "Q3BAD     =010000z4049.14N/07308.41W\x01\r\nQ4BAD     =010000z4x49.14N/07308.41W-\r\n"
                   "Q5BAD     =010000x4049.14N/07308.41W-\r\n");
    Put("MsgTimerint.txt", "-7e99");
    Put("Objtrans.txt", "1\r\n2\r\n");
    station.files.Remove(Path() + "/Digi.txt");
    Said();
    halvern.All.Dispatch(main.RestoreMenu.OnClick);
    EXPECT_THAT(Said(), Contains(HasSubstr("Error # 53 File not found: 5 damaged rows of 'Pos.txt', 'Digi.txt'")));
    EXPECT_THAT(Stations(), ElementsAre("Q0OWN", "Q1ABC"));
    EXPECT_THAT(Rows(form.BullLst), ElementsAre("Q1ABC>BLN1:a bulletin"));
    EXPECT_EQ(main.MyObjectLst.Count(), main.TransmitLst.Count());
    EXPECT_TRUE(main.LogMenu.Enabled() && !halvern.Engine.ReviewMode);
    station.Hear("Q2CAR-9>APRS:=4101.00N/07400.00W>heard again");
    EXPECT_THAT(Stations(), ElementsAre("Q0OWN", "Q1ABC", "Q2CAR-9"));
}

TEST_F(History, ALogThatCannotBeWrittenIsClosedAndToldOnce)
{
    Click(main.Log, "day.log");
    station.Hear(BusyHour[0]);
    std::filesystem::remove(Path() + "/day.log");
    Said();
    HearAll(BusyHour);
    EXPECT_THAT(Said(), Contains(HasSubstr("The log could not be written")).Times(1));
    EXPECT_TRUE(!main.Log.Checked() && main.Log.Caption() == "&Start Log" && !halvern.Engine.LogOpen);
    EXPECT_EQ(halvern.TerminalFrm.RawPacketLst.Count(), 11);
    EXPECT_THAT(Click(main.Log, "no folder/day.log"), Contains(HasSubstr("No such file or directory")));
    EXPECT_FALSE(main.Log.Checked());
}

TEST_F(History, ALogOnAFullDiskEndsWithAWholeRow)
{
    Click(main.Log, "day.log");
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit little{150, RLIM_INFINITY}, none{RLIM_INFINITY, RLIM_INFINITY};
    ::setrlimit(RLIMIT_FSIZE, &little);
    HearAll(BusyHour);
    ::setrlimit(RLIMIT_FSIZE, &none);
    EXPECT_FALSE(main.Log.Checked());
    EXPECT_EQ(FileOf("day.log"), BusyHour[0] + "\r\n" + BusyHour[1] + "\r\n");
}

TEST_F(History, TheRunningLogIsNotPlayedAndNotOverwritten)
{
    Click(main.Log, "day.log");
    HearAll(BusyHour);
    for (auto* item : {&main.ImportLog, &main.ExportMemory}) {
        std::filesystem::remove(Path() + "/link.log");
        std::filesystem::create_symlink(Path() + "/day.log", Path() + "/link.log");
        EXPECT_THAT(Click(*item, "link.log"),
                    Contains(HasSubstr("link.log Is an open file. Please close the file and try again")));
    }
    EXPECT_EQ(LinesOf(FileOf("day.log")).size(), BusyHour.size());
    Click(main.ExportMemory, "memory.log");
    EXPECT_EQ(FileOf("memory.log"), FileOf("day.log"));
}

TEST_F(History, AnImportCanBeStopped)
{
    std::string log;
    for (int i = 0; i < 1000; ++i) log += "Q" + std::to_string(100 + i) + ">APRS:!4049.14N/07308.41W-\r\n";
    Put("long.log", log);
    HearAll(BusyHour);
    const auto before = StoresOf(halvern);
    ReadSoFar seen;
    station.dialogs.OnProgress = [&](const ReadSoFar& soFar) {
        seen = soFar;
        return soFar.lines < 512;
    };
    Import("long.log");
    EXPECT_EQ(seen.of, log.size());
    EXPECT_EQ(seen.lines, 512u);
    EXPECT_EQ(halvern.PositionFrm.PosLst.Count(), 512) << "the own station, and the 511 lines before the stop";
    EXPECT_TRUE(main.RestoreMenu.Visible());
    main.RestoreMenu.Click();
    EXPECT_EQ(StoresOf(halvern), before);
}

TEST_F(History, CallsAreCutOutIntoAFileAndPlayedBack)
{
    HearAll(BusyHour);
    const auto before = StoresOf(halvern);
    auto& calls = halvern.Hist;
    station.dialogs.RunModal = [](Form&) {};
    const auto search = [&](const char* first, const char* third, const char* file) {
        calls.Callsign(1).SetText(first);
        calls.Callsign(3).SetText(third);
        EXPECT_TRUE(calls.Search1.Enabled());
        Said();
        station.dialogs.Answers.push_back({Path() + "/" + file});
        calls.Search1.Click();
        return Said();
    };
    main.SaveHistory.Click();
    EXPECT_EQ(calls.Caption() + calls.Search1.Caption(), "Halvern History Export FormExport");
    calls.Callsign(2).SetText("nobody");
    EXPECT_FALSE(calls.Search1.Enabled());
    EXPECT_THAT(search("q2car", "Q2C", "cars.hst"),
                Contains(HasSubstr(R"("The Following Call Signs were Found\r\nq2car\r\nQ2C\r\n")")));
    EXPECT_EQ(LinesOf(FileOf("cars.hst")).size(), 4u) << "a packet that two fields find stands there twice";
    search("nobody", "", "none.hst");
    EXPECT_EQ(FileOf("none.hst"), "none");

    main.ImportHistory.Click();
    EXPECT_EQ(calls.Caption() + calls.Search1.Caption(), "Halvern History Import FormImport");
    EXPECT_THAT(search("W9", "", "cars.hst"), Contains(HasSubstr("None of the Call Signs were found")));
    EXPECT_EQ(StoresOf(halvern), before);
    EXPECT_FALSE(Kept());
    search("Q2", "", "cars.hst");
    EXPECT_THAT(Stations(), ElementsAre("Q0OWN", "Q2CAR-9"));
    main.RestoreMenu.Click();
    EXPECT_EQ(StoresOf(halvern), before);
}

TEST_F(History, OneKindOfSymbolAndTheWayBack)
{
    HearAll(BusyHour);
    const auto before = Rows(halvern.PositionFrm.PosLst);
    const std::tuple<const char*, const char*, Strings> kinds[] = {
        {"Mobiles", "Mobiles", {"Q0OWN", "Q2CAR-9", "BALLOON"}},
        {"Weather Stations", "Weather Staions", {"Q0OWN", "Q3WX", "BALLOON"}},
        {"Car />", "Car", {"Q0OWN", "Q2CAR-9", "BALLOON"}}};
    for (const auto& [kind, caption, stations] : kinds) {
        Filter(kind);
        EXPECT_EQ(main.Caption(), "Halvern Showing Just " + std::string(caption));
        EXPECT_EQ(Stations(), stations);
    }
    EXPECT_TRUE(halvern.Engine.ReviewMode && main.JustMenu.Enabled());
    station.Hear("Q1ABC>APRS::Q0OWN    :while filtered{13");
    Filter("All");
    EXPECT_EQ(main.Caption(), "Halvern");
    EXPECT_EQ(Rows(halvern.PositionFrm.PosLst), before);
    EXPECT_THAT(Rows(form.MsgToYouLst), ElementsAre("Q1ABC>Q0OWN:12.hello", "Q1ABC>Q0OWN:13.while filtered"));
    EXPECT_FALSE(Kept() || halvern.Engine.ReviewMode);
    const std::pair<const char*, const char*> overlays[] = {
        {"", "You did not supply an Overlay Character."},
        {"AB", "You can only supply one Overlay Character."},
        {"a", "Your Overlay character must be in the range of 0 through 9 or A through Z."}};
    for (const auto& [overlay, words] : overlays) {
        station.dialogs.Answers.push_back({overlay});
        EXPECT_THAT(Filter("Car Overlay \\>"), Contains(HasSubstr(words)));
        EXPECT_FALSE(halvern.Engine.JustSymbolsOn || main.JustMenu.Enabled());
        halvern.JustSym.CancelCmd.Click();
    }
    station.dialogs.Answers.push_back({"E"});
    Filter("Car Overlay \\>");
    EXPECT_EQ(halvern.Engine.JustTable + halvern.Engine.JustCode, "E>");
}

TEST_F(History, OtherPeoplesFilesAreTakenAsTheyAre)
{
    const std::pair<const char*, const char*> lines[] = {
        {"Q1ABC>APRS:!x", "Q1ABC>APRS:!x"},
        {"2024-05-31 12:00:00 UTC: Q1ABC>APRS:!x", "Q1ABC>APRS:!x"},
        {"2024-05-31T12:00:00.123Z Q1ABC>APRS:!x", "Q1ABC>APRS:!x"},
        {"12:00:00 Q1ABC>APRS:!x", "Q1ABC>APRS:!x"},
        {"[12:00:00] Q1ABC>APRS:!x", "Q1ABC>APRS:!x"},
        {"[2024-05-31 12:00:00 UTC] [0L] Q1ABC>APRS:!x", "Q1ABC>APRS:!x"},
        {"2024/05/31 12:00:00+00:00,Q1ABC>APRS:!x", "Q1ABC>APRS:!x"},
        {"2024-05-31 12:00:00 nothing", "2024-05-31 12:00:00 nothing"},
        {"", ""},
        {"chan,utime,isotime,source,heard,level", ""},
        {"0,1622462400,2021-05-31T12:00:00Z,Q1ABC,Q2DIG,50,0,!,Q1ABC,/-,-42.5,73.25,,,,,,,,,,\"home, sweet\"",
         "Q1ABC>APRS,Q2DIG*:!4230.00S/07315.00E-home, sweet"},
        {"0,1622462400,2021-05-31T12:34:00Z,Q1ABC,Q1ABC,50,0,;,BALL,/O,42.5,-73.99999,10.4,370,,,,,,,,up",
         "Q1ABC>APRS:;BALL     *311234z4230.00N/07400.00WO370/010up"},
        {"0,1622462400,2021-05-31T12:34:00Z,Q1ABC,Q1ABC,50,0,>,Q1ABC,,,,,,,,,,,busy,,", "Q1ABC>APRS:>busy"},
        {"0,1622462400,2021-05-31T12:34:00Z,Q1ABC,Q1ABC,50,0,!,Q1ABC,/-,91,nan,,,,,,,,,,", ""}};
    std::string made, log("\xEF\xBB\xBF");
    for (const auto& [line, packet] : lines) EXPECT_EQ(PacketIn(line, made), packet) << line;

    for (const auto& line : BusyHour) log += "2024-05-31 12:00:00 UTC: " + line + "\n";
    const auto path = Path() + "/packed.log.gz";
    const auto packed = gzopen(path.c_str(), "wb");
    gzwrite(packed, log.data(), static_cast<unsigned>(log.size()));
    gzclose(packed);
    Import("packed.log.gz");
    EXPECT_THAT(Stations(), ElementsAre("Q0OWN", "Q1ABC", "Q2CAR-9", "Q3WX", "BALLOON"));
    std::filesystem::resize_file(path, std::filesystem::file_size(path) / 2);
    EXPECT_THAT(Import("packed.log.gz"), Contains(HasSubstr("The log file is damaged: ")));
    EXPECT_THAT(Import("symbols"), Contains(HasSubstr("It is no plain file")));
}

/// Playing a file leaves what hearing its lines leaves, but for raw rows, counts and acks; and what was heard before
/// comes back whole, stations with a symbol of no table among it.
TEST_F(History, ARecordedFileLeavesWhatItsLinesLeave)
{
    if (TrafficFile("").empty()) GTEST_SKIP() << "no recorded traffic on this machine";
    halvern.HeardFrm.HeardGrid.SetSize(1, 1);
    for (const auto& file : std::filesystem::directory_iterator(TrafficFile(""))) {
        if (file.path().extension() != ".tnc2") continue;
        SCOPED_TRACE(file.path());
        Station live;
        live.SetUp();
        for (const auto& own : OwnLines) live.Hear(own, "MAP");
        const auto traffic = station.files.Read(file.path()).value();
        for (const auto line : LinesOf(traffic)) live.Hear(std::string(line), "IMPORT");
        live.halvern.TerminalFrm.RawPacketLst.Clear();
        live.halvern.HeardFrm.HeardGrid.SetSize(1, 1);
        const auto before = StoresOf(halvern);
        Import(file.path());
        EXPECT_EQ(StoresOf(halvern), StoresOf(live.halvern));
        main.RestoreMenu.Click();
        EXPECT_EQ(StoresOf(halvern), before);
        for (const auto line : LinesOf(traffic)) station.Hear(std::string(line), "IMPORT");
        halvern.TerminalFrm.RawPacketLst.Clear();
        halvern.HeardFrm.HeardGrid.SetSize(1, 1);
    }
    EXPECT_GT(halvern.PositionFrm.PosLst.Count(), 3000);
}

} // namespace
} // namespace halvern::test
