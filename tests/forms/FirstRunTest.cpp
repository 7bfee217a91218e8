// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/StartUp.h"
#include "forms/Screen.h"

namespace halvern::test {
namespace {

/// The windows of a station in a folder of its own, worked by their widgets.
struct Desktop {
    explicit Desktop(const TemporaryFolder& folder) : station(folder.Path()), windows(station.halvern) {}

    QWidget* Find(const char* name) const
    {
        for (auto* top : QApplication::topLevelWidgets())
            if (auto* found = top->findChild<QWidget*>(name)) return found;
        ADD_FAILURE() << name << " is nowhere";
        return nullptr;
    }
    void Type(const char* name, const char* text) const
    {
        auto* field = Find(name);
        field->setFocus();
        QTest::keyClicks(field, text);
    }
    void Press(const char* name) const { QTest::mouseClick(Find(name), Qt::LeftButton); }
    void Trigger(const char* name) { windows.Main().findChild<QAction*>(name)->trigger(); }

    Station station;
    Windows windows;
};

TEST(FirstRunInWindows, FromNothingToTheMapAndBackAfterASave)
{
    const TemporaryFolder folder;
    for (const auto data : {"dosmaps", "maplist", "symbols"})
        std::filesystem::create_directory_symlink(DataFolder() + "/" + data, folder.Path() + "/" + data);
    folder.Put("APRSDomain.INI", "127.0.0.1\r\n14580\r\nm/200\r\n127.0.0.1\r\n");
    {
        Desktop desktop(folder);
        auto& halvern = desktop.station.halvern;
        desktop.station.dialogs.RunModal = [&](Form&) {
            EXPECT_FALSE(desktop.Find("SetUpfrm.TabCancelCmd")->isEnabled());
            desktop.Press("SetUpfrm.TabOkCmd");
            const std::pair<const char*, const char*> typed[] = {
                {"CallSignTxt", "q1abc"}, {"LatDegtxt", "40"},    {"LatMintxt", "49"},       {"LatDectxt", "14"},
                {"LatSigntxt", "n"},      {"LonDegtxt", "073"},   {"LonMintxt", "08"},       {"LonDectxt", "41"},
                {"LonSigntxt", "w"},      {"CommentTXT", "here"}, {"StatusTXT", "listening"}};
            for (const auto& [name, text] : typed) desktop.Type((std::string("SetUpfrm.") + name).c_str(), text);
            EXPECT_EQ(qobject_cast<QLabel*>(desktop.Find("SetUpfrm.Lonlbl"))->text(), "07308.41W");
            desktop.Press("SetUpfrm.TabOkCmd");
        };
        StartProgram(halvern);
        EXPECT_THAT(desktop.station.TakeSaid(),
                    testing::IsSupersetOf({std::string("message none \"Halvern\" \"You have to enter a Call Sign under "
                                                       "the Station Tab First.\"")}));
        EXPECT_FALSE(halvern.SetUpfrm.Visible());
        EXPECT_TRUE(desktop.windows.WindowOf(halvern.MapFrm)->isVisible());
        desktop.Trigger("ConMdiFrm.FrmMenu(2)");
        desktop.windows.WindowOf(halvern.PositionFrm)->setGeometry(40, 60, 500, 200);
        desktop.Trigger("ConMdiFrm.SetupMenu");
        halvern.SetUpfrm.SSTab1.Select(3);
        desktop.Press("SetUpfrm.TabSaveCmd");
        EXPECT_TRUE(halvern.Engine.ConfigLoaded);
        desktop.Trigger("ConMdiFrm.EndApp");
        EXPECT_TRUE(halvern.Engine.Ended);
    }
    Desktop again(folder);
    auto& halvern = again.station.halvern;
    StartProgram(halvern);
    EXPECT_EQ(halvern.Engine.OwnCall, "Q1ABC");
    EXPECT_TRUE(again.windows.WindowOf(halvern.MapFrm)->isVisible());
    again.Trigger("ConMdiFrm.FrmMenu(2)");
    EXPECT_EQ(again.windows.WindowOf(halvern.PositionFrm)->geometry(), QRect(40, 60, 500, 200));
}

} // namespace
} // namespace halvern::test
