// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/Settings.h"
#include "app/StartUp.h"
#include "config/IniTable.h"
#include "platform/simulated/FaultyFiles.h"
#include "support/StationTest.h"

namespace halvern::test {
namespace {

constexpr const char* Servers = "euro.aprs2.net\r\n14580\r\nm/50 t/p,w\r\nrotate.aprs2.net\r\neuro.aprs2.net\r\n";

/// A folder with maps and a list of servers, and the text files that a program left in it.
struct Folder : TemporaryFolder {
    Folder()
    {
        for (const auto data : {"dosmaps", "maplist", "symbols"})
            std::filesystem::create_directory_symlink(DataFolder() + "/" + data, Path() + "/" + data);
        Put("APRSDomain.INI", Servers);
    }
    std::string Text(const std::string& name) const { return DiskFiles().Read(Path() + "/" + name).value_or("none"); }
};

struct Settings : testing::Test {
    Folder folder;

    /// A first run: the Station tab filled in, OK; then setup again, `more`, and Save.
    std::string SaveFirst(const std::function<void(Halvern&)>& more = [](Halvern&) {})
    {
        Station station(folder.Path());
        auto& halvern = station.halvern;
        station.dialogs.RunModal = [&](Form&) {
            station.SetUp();
            halvern.SetUpfrm.TabOkCmd.Click();
        };
        StartProgram(halvern);
        halvern.ConMdiFrm.SetupMenu.Click();
        more(halvern);
        station.TakeSaid();
        halvern.SetUpfrm.TabSaveCmd.Click();
        EXPECT_THAT(
            station.TakeSaid(),
            ElementsAre("message none \"Halvern\" \"Your Configuration is now Saved.\\r\\nEnjoy 73 DE K9ZZZ\""));
        EXPECT_TRUE(halvern.Engine.ConfigLoaded);
        EXPECT_FALSE(halvern.SetUpfrm.Visible());
        halvern.ConMdiFrm.EndApp.Click();
        return folder.Text("Halvern.INI");
    }
};

TEST_F(Settings, TheFileIsPositionalLines)
{
    const auto ini = SaveFirst();
    EXPECT_THAT(ini, StartsWith("Q0OWN\r\n0\r\n40\r\n49\r\n14\r\nN\r\n073\r\n08\r\n41\r\nW\r\n 0 \r\n 0 \r\n 0 \r\n"
                                " 39 \r\n\r\nown\r\nhere\r\n 0 \r\n 0 \r\n 3 \r\nALL\r\nCQ\r\nQST\r\n 0 \r\n 0 \r\n"
                                " 8490 \r\n 0 \r\n 0 \r\n 8205 \r\n 0 \r\n 3600 \r\n 0 \r\n 0 \r\n 4800 \r\n 0 \r\n"));
    EXPECT_TRUE(ini.ends_with("False\r\nTrue\r\nFalse\r\n")) << "DOS maps, and no line of a bitmap";
    EXPECT_EQ(std::count(ini.begin(), ini.end(), '\n'), 17 + 2 + 4 + 2 + 55 + 4 + 26 + 2 + 3 + 10 + 3);
    EXPECT_THAT(ini, HasSubstr("Monospace\r\n 9 \r\n"));
}

TEST_F(Settings, ARestartFindsEverythingInItsPlace)
{
    const auto saved = SaveFirst([](Halvern& halvern) {
        auto& setUp = halvern.SetUpfrm;
        for (Control* control : halvern.All.All())
            if (auto* list = dynamic_cast<List*>(control);
                list && list->style == ListStyle::Combo && list->Name().starts_with("SetUpfrm.") && list->Count() > 0)
                list->Preselect(list->Count() - 1);
        setUp.TncTypeCombo.Preselect(-1);
        setUp.PortLst.Select(3); // not the port of the weather station
        setUp.SSIDLBL.SetCaption("9");
        setUp.CommentTXT.SetText("one, two, \xE9\xFF");
        setUp.SymbolCombo.Preselect(setUp.SymbolCombo.IndexOf("Car Overlay \\>"));
        setUp.OverlayChar = "A";
        setUp.UnPath.Add("Q1DIG,WIDE2-1");
        setUp.UnPath.Select(2);
        setUp.MsgGroupLst.Clear();
        setUp.WxSourceOpt.Select(1);
        setUp.GpsPortLst.Select(9); // for the run only
        halvern.MessageFrm.MailUnPath.Add("WIDE1-1,WIDE2-1");
        halvern.MessageFrm.MailUnPath.Select(2);
        halvern.PositionFrm.SetPlace({1000, -20, 30, 400, 1});
        halvern.FindFrm.FindPosTxt.SetFont({"Sans", 8.25});
        halvern.DigiFrm.ShDigiLst.SetFont({"Serif", 12});
        halvern.Map.MapCenterLat = -12.3456789F;
        halvern.Map.MapRange = 4096.5;
        setUp.IntDomainCombo.SetText("127.0.0.1");
    });
    EXPECT_THAT(folder.Text("APRSDomain.INI"),
                "127.0.0.1\r\n14580\r\nm/50 t/p,w\r\nrotate.aprs2.net\r\neuro.aprs2.net\r\n127.0.0.1\r\n");
    Station station(folder.Path());
    auto& halvern = station.halvern;
    auto& setUp = halvern.SetUpfrm;
    StartProgram(halvern);
    EXPECT_THAT(station.TakeSaid(), ElementsAre("bell")) << "an overlay symbol that is loaded asks nothing";
    EXPECT_EQ(halvern.Engine.OwnCall, "Q0OWN-9");
    EXPECT_EQ(setUp.SymbolCombo.Text() + setUp.OverlayChar, "Car Overlay \\>A");
    EXPECT_TRUE(setUp.WxSourceOpt.On(1) && setUp.SoftWxFrame.Enabled() && !setUp.ComWxFrame.Enabled());
    EXPECT_EQ(setUp.PortLst.Text() + setUp.GpsPortLst.Text(), "Com4Com2");
    EXPECT_EQ(halvern.PositionFrm.Place(), (Place{1000, -20, 30, 400, 1}));
    EXPECT_EQ(halvern.DigiFrm.DigiLst.Font(), (Font{"Serif", 12})) << "the list that the window shows";
    EXPECT_EQ(halvern.Map.MapCenterLat, -12.3456789F);
    EXPECT_EQ(halvern.Map.MapRange, 4096) << "a fraction is rounded, halves to even";
    EXPECT_EQ(setUp.IntDomainCombo.Text() + " " + setUp.APRServePassTxt.Text(), "127.0.0.1 9093");
    EXPECT_TRUE(setUp.IgateOpt.EntryEnabled(1) && halvern.ConMdiFrm.PortsMn.Enabled());
    EXPECT_TRUE(halvern.MapFrm.Visible() && setUp.TabCancelCmd.Enabled());
    halvern.Map.MapRange = 4096.5; // as it was
    EXPECT_EQ(WriteIni(SettingsTable(halvern)), saved);
}

TEST_F(Settings, ADamagedLineIsNamedAndTheFileStays)
{
    const auto whole = SaveFirst();
    const std::tuple<int, const char*, const char*> cases[] = {// no text: the file ends before the line
                                                               {11, " 16 ", "TNC port"},
                                                               {12, "fast", "TNC speed"},
                                                               {18, " 2 ", "index of the unproto paths"},
                                                               {19, " 22 ", "number of unproto paths"},
                                                               {20, " -1 ", "number of message groups"},
                                                               {22, nullptr, "message group"},
                                                               {26, " 32768 ", "height of SetUpfrm"},
                                                               {30, " 3 ", "state of SetUpfrm"},
                                                               {86, " 0 ", "font size of PositionFrm.ShPosLst"},
                                                               {113, " 1e39 ", "latitude of the map's centre"},
                                                               {116, "Yes", "weather from"},
                                                               {128, nullptr, ""}};
    for (const auto& [line, text, name] : cases) {
        std::string bytes;
        int number = 0;
        for (const auto row : LinesOf(whole))
            if (++number < line || text != nullptr) bytes.append(number == line ? text : row).append(CrLf);
        folder.Put("Halvern.INI", bytes);
        Station station(folder.Path());
        StartProgram(station.halvern);
        const auto words = "could not be read: line " + std::to_string(line) + " (" + name;
        EXPECT_THAT(station.TakeSaid(), ElementsAre(HasSubstr(words), "modal SetUpfrm", "closed SetUpfrm"))
            << "what follows is a first run";
        EXPECT_FALSE(station.halvern.Engine.ConfigLoaded);
        EXPECT_EQ(folder.Text("Halvern.INI"), bytes);
    }
}

TEST_F(Settings, OlderCopiesStayBesideTheFile)
{
    Strings saved;
    for (const auto comment : {"a", "b", "c", "d", "e"})
        saved.insert(saved.begin(), SaveFirst([&](Halvern& halvern) { halvern.SetUpfrm.CommentTXT.SetText(comment); }));
    saved[4] = "none";
    const char* const ends[] = {"", ".1", ".2", ".3", ".4"};
    for (int i = 0; i < 5; ++i) EXPECT_EQ(folder.Text(std::string("Halvern.INI") + ends[i]), saved[i]);
}

TEST_F(Settings, AFullDiskLeavesTheOldFile)
{
    const auto before = SaveFirst();
    Station station(folder.Path());
    FaultyFiles full(station.files);
    Halvern halvern({station.time, station.dialogs, full}, folder.Path());
    ConnectHandlers(halvern);
    StartProgram(halvern);
    halvern.SetUpfrm.CommentTXT.SetText("other");
    full.SetRoom(100);
    halvern.SetUpfrm.TabSaveCmd.Click();
    EXPECT_THAT(station.TakeSaid(), ElementsAre("bell", HasSubstr("could not be written")));
    EXPECT_EQ(folder.Text("Halvern.INI"), before);
}

TEST_F(Settings, ServersComeFromTheirFile)
{
    const struct {
        const char *file, *server;
        const char *port, *filter;
        int count;
        const char* said;
    } cases[] = {{Servers, "euro.aprs2.net", "14580", "m/50 t/p,w", 2, ""},
                 {" \r\n \r\n \r\na\r\nb\r\n", "", "23", "", 2, ""},
                 {"gone\r\n1\r\n2\r\na\r\n\r\n", "", "1", "2", 1, ""},
                 {"a\r\n14580\r\n", "", "23", "", 0, "line 3 (server filter)"},
                 {"a\r\n14580\r\nm/9\r\na\r\n\x01\xC3\r\n", "", "23", "", 0, "line 5 (server name)"},
                 {"", "", "23", "", 0, "line 1 (server)"}};
    for (const auto& c : cases) {
        folder.Put("APRSDomain.INI", c.file);
        Station station(folder.Path());
        auto& setUp = station.halvern.SetUpfrm;
        setUp.Load();
        EXPECT_EQ(setUp.IntDomainCombo.Text(), c.server);
        EXPECT_EQ(setUp.APRServePortTxt.Text() + setUp.APRServeFilterTxt.Text(), c.port + std::string(c.filter));
        EXPECT_EQ(setUp.IntDomainCombo.Count(), c.count);
        EXPECT_TRUE(setUp.APRServePassTxt.Text() == "-1" && !setUp.APRServePassTxt.Enabled());
        EXPECT_THAT(testing::PrintToString(station.TakeSaid()), HasSubstr(*c.said ? c.said : "{}"));
    }
}

} // namespace
} // namespace halvern::test
