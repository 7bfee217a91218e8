// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "forms/Screen.h"
#include "view/Geometry.h"

namespace halvern::test {
namespace {

/// Counts the pixels that the map window is asked to paint.
class PaintCounter final : public QObject {
public:
    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            for (const auto& rect : static_cast<QPaintEvent*>(event)->region()) pixels += rect.width() * rect.height();
        return QObject::eventFilter(object, event);
    }
    int pixels = 0;
};

struct MapWindow : testing::Test {
    Screen screen;
    Halvern& halvern = screen.halvern;
    QWidget* view = nullptr;

    void SetUp() override
    {
        screen.windows->Main().resize(1366, 768);
        halvern.MapFrm.SetVisible(true);
        halvern.ConMdiFrm.DosMapMenu.SetChecked(true);
        ShowNow();
        view = screen.windows->Main().findChild<QWidget*>("MapFrm.Map1");
        ShowView(halvern, 40, 75, 128);
        ShowNow();
    }
    QPoint PlaceOf(double lat, double lon) const
    {
        const auto& frame = halvern.MapFrm.Map1.Frame();
        return QPointF((frame.left - lon) / (frame.left - frame.right) * view->width(),
                       (frame.top - lat) / (frame.top - frame.bottom) * view->height())
            .toPoint();
    }
    void HearAt(const std::string& call, double lat, double lon)
    {
        char text[80];
        std::snprintf(text, sizeof text, "%s>APRS:!%02d%05.2fN/%03d%05.2fW>", call.c_str(), int(lat),
                      (lat - int(lat)) * 60, int(lon), (lon - int(lon)) * 60);
        screen.station.Hear(text);
    }
    void SwitchPanOn() const { screen.windows->Main().findChild<QAction*>("ConMdiFrm.PanMapMenu")->trigger(); }
};

TEST_F(MapWindow, TakesAClickADragAndASecondaryClick)
{
    SwitchPanOn();
    EXPECT_EQ(view->cursor().shape(), Qt::CrossCursor);
    QTest::mouseClick(view, Qt::LeftButton, {}, PlaceOf(40.5, 75.5));
    EXPECT_NEAR(halvern.Map.MapCenterLat, 40.5, 0.02);
    EXPECT_NEAR(halvern.Map.MapCenterLon, 75.5, 0.02);
    EXPECT_EQ(halvern.Map.MapRange, 128);

    QTest::mousePress(view, Qt::LeftButton, {}, PlaceOf(41, 76));
    QTest::mouseMove(view, PlaceOf(40.5, 75));
    QTest::mouseMove(view, PlaceOf(40, 75));
    QTest::mouseRelease(view, Qt::LeftButton, {}, PlaceOf(40, 75));
    EXPECT_NEAR(halvern.Map.MapCenterLat, 40.5, 0.02);
    EXPECT_EQ(halvern.Map.MapRange, 64);

    QTest::mouseClick(view, Qt::RightButton, {}, PlaceOf(40.5, 75.5));
    EXPECT_EQ(halvern.Map.MapRange, 128);
}

TEST_F(MapWindow, StepsByKeysAndWheelWithoutAnyMode)
{
    QTest::keyClick(view, Qt::Key_Plus);
    EXPECT_EQ(halvern.Map.MapRange, 64);
    QTest::keyClick(view, Qt::Key_PageDown);
    EXPECT_EQ(halvern.Map.MapRange, 128);
    const QPointF pointer(200, 60);
    const auto turn = [&](int angle) {
        QWheelEvent event(pointer, view->mapToGlobal(pointer), {}, {0, angle}, Qt::NoButton, {}, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(view, &event);
    };
    turn(60); // half a step, as a fine wheel sends it
    EXPECT_EQ(halvern.Map.MapRange, 128);
    const auto below = static_cast<MapView*>(view)->PlaceAt(pointer);
    turn(60);
    EXPECT_EQ(halvern.Map.MapRange, 64);
    EXPECT_LE((PlaceOf(below.latitude, below.longitude) - pointer.toPoint()).manhattanLength(), 1) << "stays below it";
    turn(120 * 30);
    EXPECT_EQ(halvern.Map.MapRange, 1) << "the closest step is the last";
}

TEST_F(MapWindow, MovesByKeysAndGivesAGestureUp)
{
    const auto& map = halvern.Map;
    HearAt("Q0OWN", 41, 75);
    ShowView(halvern, 40, -179.9F, 128);
    QTest::keyClick(view, Qt::Key_Right);
    EXPECT_NEAR(map.MapCenterLon, 180.1 - map.MapHalfLon / 2, 0.01) << "over the date line";
    QTest::keyClick(view, Qt::Key_Up);
    EXPECT_NEAR(map.MapCenterLat, 40 + map.MapHalfLat / 2, 0.01);
    QTest::keyClick(view, Qt::Key_Home);
    EXPECT_NEAR(map.MapCenterLat, 41, 0.01);
    SwitchPanOn();
    const auto before = map.MapCenterLon;
    QTest::mousePress(view, Qt::LeftButton, {}, {10, 10});
    QTest::mouseMove(view, {90, 90});
    ShowNow();
    PaintCounter counter;
    view->installEventFilter(&counter);
    QTest::mouseMove(view, {100, 100});
    ShowNow();
    EXPECT_TRUE(counter.pixels > 0 && counter.pixels < 10000) << "a drag costs its box: " << counter.pixels;
    QTest::keyClick(view, Qt::Key_Escape);
    QTest::mouseRelease(view, Qt::LeftButton, {}, {90, 90});
    EXPECT_EQ(map.MapCenterLon, before);
    EXPECT_EQ(map.MapRange, 128);
    QTest::keyClick(view, Qt::Key_Escape);
    EXPECT_FALSE(halvern.ConMdiFrm.PanMapMenu.Checked());
}

TEST_F(MapWindow, TakesTheMiddleButtonAndAMenuOnEmptyGround)
{
    const auto& map = halvern.Map;
    const auto held = static_cast<MapView*>(view)->PlaceAt({300, 200});
    QTest::mousePress(view, Qt::MiddleButton, {}, {300, 200});
    QTest::mouseMove(view, {380, 150});
    EXPECT_FLOAT_EQ(map.MapCenterLat, 40) << "nothing is drawn before it is let go";
    QTest::mouseRelease(view, Qt::MiddleButton, {}, {380, 150});
    EXPECT_LE((PlaceOf(held.latitude, held.longitude) - QPoint(380, 150)).manhattanLength(), 1);
    const auto pick = [&](QPoint at, const char* words) {
        QTest::mouseClick(view, Qt::RightButton, {}, at);
        auto* menu = view->findChild<QMenu*>("GroundMenu");
        for (auto* action : menu->actions())
            if (action->text() == words) action->trigger();
        delete menu;
    };
    const auto corner = static_cast<MapView*>(view)->PlaceAt({10, 20});
    pick({10, 20}, "Copy &Position");
    EXPECT_EQ(QApplication::clipboard()->text(),
              QStringLiteral("%1 %2").arg(corner.latitude, 0, 'f', 5).arg(-corner.longitude, 0, 'f', 5));
    pick({10, 20}, "&Centre Here");
    EXPECT_NEAR(map.MapCenterLat, corner.latitude, 1e-4);
    pick({10, 20}, "&Away");
    EXPECT_EQ(map.MapRange, 256);
}

TEST_F(MapWindow, SnapsToAStationAndOpensItsMenu)
{
    HearAt("Q0CAR", 40.25, 75.5);
    ShowNow();
    const auto onSymbol = PlaceOf(40.25, 75.5) - QPoint(0, 8);
    auto* words = screen.Find<QLabel>("PointerPlace");
    EXPECT_TRUE(words->isHidden());
    QTest::mouseMove(view, onSymbol);
    EXPECT_EQ(halvern.ConMdiFrm.StatusBar2.Caption(), "40.25 -75.5");
    EXPECT_EQ(words->text(), "FN20gg");
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(view, &leave);
    EXPECT_TRUE(words->isHidden());
    QTest::mouseClick(view, Qt::RightButton, {}, onSymbol);
    EXPECT_EQ(halvern.Map.PopStation, halvern.PositionFrm.PosLst.Find("Q0CAR    "));
    EXPECT_TRUE(screen.windows->Main().StationMenu().isVisible());
    screen.windows->Main().StationMenu().hide();
    SwitchPanOn();
    QTest::mouseClick(view, Qt::LeftButton, {}, onSymbol);
    EXPECT_FLOAT_EQ(halvern.Map.MapCenterLat, 40.25F);
    EXPECT_FLOAT_EQ(halvern.Map.MapCenterLon, 75.5F);
}

TEST_F(MapWindow, IsFurnishedAboveItsPictureAndBelowTheLabels)
{
    HearAt("Q0PHL", 39.9524, 75.1656); // on a town that the view names
    ShowNow();
    const auto changedBy = [&](const char* look, const QRect& calm = {}) {
        const auto before = view->grab().toImage();
        for (auto* menu : screen.windows->Main().findChildren<QMenu*>())
            for (auto* action : menu->actions())
                if (action->objectName() == look) action->trigger();
        ShowNow();
        const auto after = view->grab().toImage();
        if (!calm.isNull()) {
            EXPECT_EQ(before.copy(calm), after.copy(calm)) << look;
        }
        QRect changed;
        for (int y = 0; y < after.height(); ++y)
            for (int x = 0; x < after.width(); ++x)
                if (before.pixel(x, y) != after.pixel(x, y)) changed |= QRect(x, y, 1, 1);
        return changed;
    };
    const auto picture = screen.windows->Map().PictureOf(halvern.MapFrm.Map1);
    const QRect label(PlaceOf(39.9524, 75.1656) + QPoint(18, 2), QSize(30, 10));
    EXPECT_GT(changedBy("Looks.PlaceNames", label).width(), view->width() / 2);
    EXPECT_LT(changedBy("Looks.ScaleBar").width(), view->width() / 3);
    EXPECT_LT(changedBy("Looks.Legend").height(), view->height() / 3);
    EXPECT_GT(changedBy("Looks.GridFigures").height(), view->height() / 2);
    EXPECT_EQ(screen.windows->Map().PictureOf(halvern.MapFrm.Map1), picture) << "none of it is saved or printed";
    EXPECT_EQ(halvern.NoticesFrm.NoticeLst.Count(), 0);
}

TEST_F(MapWindow, HasTheShapeOfThePictureThatIsTheMap)
{
    screen.Find<QAction>("ConMdiFrm.BitMapMenu")->trigger();
    ShowNow();
    EXPECT_NEAR(double(view->width()) / view->height(), 1240.0 / 900, 0.01);
    EXPECT_EQ(halvern.MapFrm.Map1.Width(), view->width());
    const auto shown = screen.windows->Map().PictureOf(halvern.MapFrm.Map1);
    auto black = shown.copy(shown.width() - 20, 0, 20, shown.height());
    const auto edge = std::exchange(black, black.copy());
    black.fill(Qt::black);
    EXPECT_NE(edge, black) << "the picture goes to the edge";
    screen.Find<QAction>("ConMdiFrm.DosMapMenu")->trigger();
    EXPECT_EQ(view->size(), view->parentWidget()->size());
}

TEST_F(MapWindow, PaintsASymbolWhereItStands)
{
    HearAt("Q0CAR", 40.25, 75.5);
    ShowNow();
    const auto at = PlaceOf(40.25, 75.5);
    const auto coloured = [&](const QRect& box) {
        const auto image = view->grab(box).toImage();
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y).saturation() > 60;
        return count;
    };
    EXPECT_GT(coloured({at.x() - 10, at.y() - 20, 20, 20}), 20);
    screen.windows->WindowOf(halvern.MapFrm)->resize(600, 420); // the picture follows; nobody plots anew
    ShowNow();
    EXPECT_EQ(halvern.MapFrm.Map1.Width(), view->width());
    EXPECT_EQ(halvern.MapFrm.Map1.Height(), view->height());
    const auto moved = PlaceOf(40.25, 75.5);
    EXPECT_GT(coloured({moved.x() - 10, moved.y() - 20, 20, 20}), 20);
}

TEST_F(MapWindow, TellsAPileApartAndWalksOverTheStationsInView)
{
    for (int i = 0; i < 12; ++i) HearAt("Q0P" + std::to_string(10 + i), 40.25, 75.5);
    HearAt("Q0MID", 40, 75);
    HearAt("Q0FAR", 20, 75);
    ShowNow();
    const auto onPile = PlaceOf(40.25, 75.5) - QPoint(0, 8);
    QHelpEvent help(QEvent::ToolTip, onPile, view->mapToGlobal(onPile));
    QApplication::sendEvent(view, &help);
    for (const char* told : {"Q0P21</b>", "Q0P12</b>", "<tr><td style=", "and 2 more", "image/png"})
        EXPECT_TRUE(QToolTip::text().contains(told)) << told;
    QTest::mousePress(view, Qt::RightButton, {}, onPile);
    auto* menu = view->findChild<QMenu*>("PileMenu");
    ASSERT_EQ(menu->actions().size(), 10);
    auto* second = menu->actions()[1]->menu();
    emit second->aboutToShow();
    EXPECT_EQ(halvern.Map.PopStation, halvern.PositionFrm.PosLst.Find(CallField(second->title().toStdString())));
    EXPECT_EQ(second->actions()[0]->text(), "&Information");
    menu->close();

    auto* map = QAccessible::queryAccessibleInterface(view);
    const auto chosen = [&]() -> QString {
        QString names;
        for (int i = 0; i < map->childCount(); ++i)
            if (map->child(i)->state().selected) names += map->child(i)->text(QAccessible::Name).section(',', 0, 0);
        return names;
    };
    QTest::keyClick(view, Qt::Key_Escape);
    EXPECT_EQ(chosen(), "");
    QTest::keyClick(view, Qt::Key_N);
    EXPECT_EQ(chosen(), "Q0MID");
    const auto ring = view->grab().toImage();
    QTest::keyClick(view, Qt::Key_P);
    EXPECT_TRUE(chosen().startsWith("Q0P"));
    EXPECT_NE(view->grab().toImage(), ring);
    QTest::keyClick(view, Qt::Key_N);
    QTest::keyClick(view, Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_TRUE(screen.windows->Main().StationMenu().isVisible());
    screen.windows->Main().StationMenu().hide();
    QTest::keyClick(view, Qt::Key_Return);
    EXPECT_EQ(halvern.InformationFrm.Caption(), "Q0MID Information");
    auto* card = screen.windows->WindowOf(halvern.InformationFrm)->findChild<QLabel*>("StationCard");
    EXPECT_TRUE(card->isVisible() && card->text().contains("Q0MID</b>"));
    halvern.InformationFrm.SetVisible(false);
}

TEST_F(MapWindow, IsReadAloud)
{
    HearAt("Q0MID", 40, 75);
    HearAt("Q0FAR", 20, 75);
    ShowNow();
    auto* map = QAccessible::queryAccessibleInterface(view);
    EXPECT_EQ(map->text(QAccessible::Description),
              "Centre 40.00° N, 75.00° W; range 128 nautical miles; 1 station in view");
    ASSERT_EQ(map->childCount(), 1);
    auto* station = map->child(0);
    EXPECT_TRUE(station->text(QAccessible::Name).startsWith("Q0MID, Car, "));
    EXPECT_TRUE(station->text(QAccessible::Description).contains("Heard: just now"));
    EXPECT_EQ(map->childAt(station->rect().center().x(), station->rect().center().y()), station);
    EXPECT_EQ(map->indexOfChild(station), 0);
    station->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(halvern.InformationFrm.Caption(), "Q0MID Information");
    halvern.InformationFrm.SetVisible(false);
    ShowView(halvern, 20, 75, 128);
    ShowNow();
    EXPECT_TRUE(station->state().offscreen);
    EXPECT_TRUE(map->child(0)->text(QAccessible::Name).startsWith("Q0FAR"));
}

TEST_F(MapWindow, DrawsTrailsOfWhatMovesWhileTheyAreOn)
{
    const auto brightest = [&] { // between the two last places of the car, where its label is not
        const auto at = (PlaceOf(40.25, 75.5) + PlaceOf(40.75, 75.5)) / 2;
        const auto colour = view->grab({at - QPoint(3, 3), QSize(7, 7)}).toImage();
        int most = 0;
        for (int x = 0; x < 7; ++x) most = std::max(most, QColor(colour.pixel(x, 3)).green());
        return most;
    };
    HearAt("Q0CAR", 40.25, 75.5);
    HearAt("Q0CAR", 40.75, 75.5);
    ShowNow();
    const int ground = brightest();
    QAction* on = nullptr;
    for (const auto* menu : screen.windows->Main().findChildren<QMenu*>())
        for (auto* action : menu->actions())
            if (action->objectName() == "Looks.Trails") on = action;
    ASSERT_NE(on, nullptr);
    EXPECT_FALSE(on->isChecked());
    on->trigger();
    HearAt("Q0CAR", 40.25, 75.5);
    ShowNow();
    const int fresh = brightest();
    EXPECT_GT(fresh, ground + 100);
    screen.station.time.SetUtc({2010, 1, 1, 0, 0, 0});
    HearAt("Q0NEW", 39, 75);
    EXPECT_LT(brightest(), fresh - 50) << "it fades";
    on->trigger();
    EXPECT_EQ(brightest(), ground);
}

} // namespace
} // namespace halvern::test
