// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/Screen.h"
#include "view/Geometry.h"

namespace halvern::test {
namespace {

struct ObjectWindow : testing::Test {
    Screen screen;
    Halvern& halvern = screen.halvern;
    CreateObjectsForm& form = halvern.CreateObjectsFrm;
    QWidget* window = screen.windows->WindowOf(form);
    QWidget* map = screen.windows->Main().findChild<QWidget*>("MapFrm.Map1");

    QPushButton* PickButton() const
    {
        for (auto* button : window->findChildren<QPushButton*>())
            if (button->text() == "&Pick On Map") return button;
        return nullptr;
    }
    void ShowMap()
    {
        screen.windows->Main().resize(1366, 768);
        halvern.MapFrm.SetVisible(true);
        halvern.ConMdiFrm.DosMapMenu.SetChecked(true);
        halvern.PositionFrm.SetVisible(true);
        ShowNow();
        ShowView(halvern, 40, -75, 128);
        ShowNow();
    }
};

TEST_F(ObjectWindow, TakesItsPlaceFromAClickOnTheMap)
{
    form.Show();
    EXPECT_FALSE(PickButton()->isEnabled()) << "there is no map to click on";
    ShowMap();
    const auto aside = [&] { return form.Visible() && !window->isVisible() && QGuiApplication::overrideCursor(); };
    PickButton()->click();
    EXPECT_TRUE(aside());
    auto* area = screen.windows->Main().findChild<QMdiArea*>();
    EXPECT_EQ(area->activeSubWindow(), screen.windows->WindowOf(halvern.MapFrm));
    auto* pan = screen.windows->Main().findChild<QAction*>("ConMdiFrm.PanMapMenu");
    pan->trigger(); // the map's own gestures wait until the place is picked
    const auto before = halvern.Map.MapCenterLat;
    auto* list = screen.windows->Main().findChild<QWidget*>("PositionFrm.PosLst");
    QTest::mouseClick(list, Qt::LeftButton, {}, {5, 5});
    QTest::mouseClick(map, Qt::RightButton, {}, {5, 5});
    QTest::keyClick(map, Qt::Key_Tab);
    EXPECT_TRUE(aside());
    EXPECT_EQ(screen.windows->Main().focusWidget(), map);
    QTest::mouseClick(map, Qt::LeftButton, {}, map->rect().center());
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(halvern.Map.MapCenterLat, before);
    EXPECT_EQ(form.LatDegtxt.Text() + form.LatSigntxt.Text() + form.LonSigntxt.Text(),
              form.LatMintxt.Text() >= "30" ? "39NE" : "40NE");
    const auto texts = form.Texts();

    PickButton()->click();
    QTest::keyClick(map, Qt::Key_Escape);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(form.Texts(), texts);
    EXPECT_TRUE(pan->isChecked()) << "Escape was the picker's";

    PickButton()->click();
    form.Unload(); // the program ends
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    form.Show();
    EXPECT_TRUE(window->isVisible());
}

TEST_F(ObjectWindow, TellsBesideEachObjectWhenItGoesOut)
{
    auto& main = halvern.ConMdiFrm;
    const std::string record = ";ONE      *010000z4049.14N/07308.41W>|";
    main.MyObjectLst.Add(record);
    main.TransmitLst.Add(" ");
    main.MyObjectTimer.Start(1);
    auto& list = halvern.KillMyObjectsFrm.ObjectLst;
    list.Add(record);
    list.Add("gone");
    const auto* view = screen.Find<QTableView>("KillMyObjectsFrm.ObjectLst");
    const auto text = [&](int row, int column) { return view->model()->index(row, column).data().toString(); };
    ShowNow();
    EXPECT_EQ(text(0, 0), "in 1 s");
    EXPECT_EQ(text(0, 1), QString::fromStdString(record));
    EXPECT_EQ(text(1, 0), "");
    screen.station.time.Wait(3001);
    EXPECT_EQ(text(0, 0), "in 5 s");
    screen.station.time.Wait(120000);
    EXPECT_EQ(text(0, 0), "in 30 min");
    screen.station.time.Wait(5 * 60000);
    EXPECT_EQ(text(0, 0), "in 25 min");
    main.MyObjectTimer.Stop();
    EXPECT_EQ(text(0, 0), "not yet set");
}

} // namespace
} // namespace halvern::test
