// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/Mail.h"
#include "forms/RowsView.h"
#include "forms/Screen.h"
#include "platform/qt/QtSocketDevice.h"
#include "platform/qt/QtTimers.h"
#include "support/qt/Application.h"
#include "support/qt/SilentServer.h"
#include "view/ChildWindows.h"

namespace halvern::test {
namespace {

QAction* ActionOf(const Screen& screen, const char* name)
{
    return screen.windows->Main().findChild<QAction*>(name);
}

struct Desk : testing::Test {
    Screen screen;
    Halvern& halvern = screen.halvern;
};

TEST_F(Desk, MenuItemsFollowTheirControlsAndPressThem)
{
    auto& item = halvern.ConMdiFrm.PlotPhgFixedMenu;
    int presses = 0;
    item.OnClick = [&] { item.SetChecked(++presses == 1); };
    auto* action = ActionOf(screen, "ConMdiFrm.PlotPhgFixedMenu");
    ASSERT_NE(action, nullptr);
    action->trigger();
    EXPECT_TRUE(action->isChecked());
    action->trigger();
    action->trigger(); // the third press leaves the item as it was, whatever an action does of its own
    EXPECT_EQ(presses, 3);
    EXPECT_FALSE(action->isChecked());
    item.SetEnabled(false);
    item.SetVisible(false);
    item.SetCaption("&Circles");
    EXPECT_FALSE(action->isEnabled());
    EXPECT_FALSE(action->isVisible());
    EXPECT_EQ(action->text(), "&Circles");
}

/// Whatever an event's handler throws ends that event, is told, and leaves the program running.
TEST_F(Desk, NothingThatIsThrownGetsPastItsEvent)
{
    auto& main = halvern.ConMdiFrm;
    auto& field = halvern.MessageFrm.SendCallTxt;
    auto& ticked = main.NetDecayTmr;
    QtTimers timers(halvern.All);
    const auto fail = [] { throw std::out_of_range("thrown"); };
    main.BeaconMenu.OnClick = main.ScaleCombo.OnClick = field.OnChange = main.SoundSoc.OnReceive = fail;
    halvern.MapFrm.OnResize = halvern.FontFrm.OnActivate = halvern.FontFrm.OnCloseBox = fail;
    halvern.MapFrm.Map1.OnMouseDown = [&](MouseButton, double, double) { fail(); };
    ticked.OnTick = [&] {
        ticked.Stop();
        fail();
    };
    halvern.MessageFrm.Show();
    halvern.MapFrm.SetVisible(true);
    auto* line = screen.Find<QLineEdit>("MessageFrm.SendCallTxt");
    auto* map = screen.windows->WindowOf(halvern.MapFrm);
    ShowNow();
    const std::pair<const char*, std::function<void()>> events[] = {
        {"a click", [&] { ActionOf(screen, "ConMdiFrm.BeaconMenu")->trigger(); }},
        {"a combo", [&] { QTest::keyClick(screen.Find<QComboBox>("ConMdiFrm.ScaleCombo"), Qt::Key_Down); }},
        {"typing", [&] { QTest::keyClick(line, Qt::Key_A); }},
        {"a tick", [&] { ticked.Start(1), RunUntil([&] { return !ticked.Running(); }); }},
        {"bytes of a socket", [&] { main.SoundSoc.Arrived("x"); }},
        {"the mouse", [&] { QTest::mouseClick(map->findChild<QWidget*>("MapFrm.Map1"), Qt::LeftButton); }},
        {"a new size", [&] { map->resize(300, 200); }},
        {"a window that comes up", [&] { FromScreen(halvern.FontFrm, [&] { halvern.FontFrm.Show(); }); }},
        {"a close box", [&] { screen.windows->WindowOf(halvern.FontFrm)->close(); }}};
    for (const auto& [what, act] : events) {
        screen.station.TakeSaid();
        act();
        EXPECT_THAT(screen.station.TakeSaid(), Contains(HasSubstr("Error # 51 thrown"))) << what;
    }
}

/// Acts once, soon after the widget that it watches was painted.
struct AfterPaint final : QObject {
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && act) QTimer::singleShot(0, std::exchange(act, nullptr));
        return false;
    }
    std::function<void()> act;
};

TEST_F(Desk, LivesWhileAConnectionIsTriedAndEscapeGivesItUp)
{
    const SilentServer silent;
    auto& main = halvern.ConMdiFrm;
    const QtSocketDevice real(main.InternetSoc);
    halvern.SetUpfrm.IntDomainCombo.SetText("127.0.0.1");
    halvern.SetUpfrm.APRServePortTxt.SetText(std::to_string(silent.Port()));
    std::string status;
    AfterPaint painted;
    painted.act = [&] {
        status = main.StatusBar1.Caption();
        QTest::keyClick(&screen.windows->Main(), Qt::Key_Escape);
    };
    screen.windows->WindowOf(halvern.PositionFrm)->installEventFilter(&painted);
    QTimer::singleShot(0, [&] { ActionOf(screen, "ConMdiFrm.FrmMenu(2)")->trigger(); });
    ActionOf(screen, "ConMdiFrm.PortIp")->trigger();
    const auto whom = "127.0.0.1:" + std::to_string(silent.Port());
    EXPECT_EQ(status, "Connecting to " + whom + " ...");
    EXPECT_EQ(main.StatusBar1.Caption(), "Not connected to " + whom + ": stopped");
    EXPECT_THAT(screen.station.TakeSaid(), IsEmpty()) << "he knows it himself";
    EXPECT_FALSE(main.PortIp.Checked());
}

TEST_F(Desk, ACloseBoxHidesAndTheRowsStay)
{
    ActionOf(screen, "ConMdiFrm.FrmMenu(2)")->trigger();
    auto* window = screen.windows->WindowOf(halvern.PositionFrm);
    EXPECT_TRUE(window->isVisible());
    screen.station.Hear("Q0ABC>APRS:!4049.14N/07308.41W-x");
    const int rows = halvern.PositionFrm.PosLst.Count();
    window->resize(300, 200);
    EXPECT_EQ(halvern.PositionFrm.ShPosLst.Count(), rows) << "the copy for display is made anew";
    window->close();
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(halvern.PositionFrm.Visible());
    EXPECT_FALSE(halvern.ConMdiFrm.FrmMenu(2).Checked());
    EXPECT_EQ(halvern.PositionFrm.PosLst.Count(), rows);
}

/// The map fills what the others leave; no key hides what is merely covered; tiles never leave the area.
TEST_F(Desk, WindowsShareTheAreaAndTheMapComesFirst)
{
    auto* const area = screen.windows->Main().findChild<QMdiArea*>();
    auto* const map = static_cast<QMdiSubWindow*>(screen.windows->WindowOf(halvern.MapFrm));
    auto* const rows = screen.windows->WindowOf(halvern.PositionFrm);
    const auto press = [&](int window) {
        screen.windows->Main().Care().Press(ChildWindow(halvern, window), halvern.ConMdiFrm.FrmMenu(window));
    };
    press(1);
    EXPECT_EQ(map->geometry(), area->viewport()->rect()) << "alone";
    map->showMaximized();
    press(2);
    EXPECT_GT(map->width() * map->height(), 2 * rows->width() * rows->height());
    EXPECT_FALSE(map->isMaximized() || map->geometry().intersects(rows->geometry()));
    EXPECT_EQ(rows->windowTitle(), "Positions");
    press(1);
    EXPECT_EQ(area->activeSubWindow(), map) << "lifted, since it was not in front";
    press(1);
    EXPECT_TRUE(map->isHidden() && rows->isVisible());
    for (const int window : {1, 3, 4, 5, 6, 8, 9, 10}) press(window);
    halvern.ConMdiFrm.TileMenu.Click();
    QRegion covered;
    for (const auto* window : area->subWindowList()) {
        if (window->isHidden()) continue;
        EXPECT_TRUE(area->viewport()->rect().contains(window->geometry())) << window->windowTitle().toStdString();
        EXPECT_FALSE(covered.intersects(window->geometry()));
        covered += window->geometry();
    }
    EXPECT_EQ(covered, QRegion(area->viewport()->rect()));
    EXPECT_NEAR(map->width(), area->viewport()->width() * 0.6, 2);
}

/// Setup says beside the field what is strange, goes to the one that is wrong, and the status bar says what is not
/// kept.
TEST_F(Desk, SetupLeadsToTheFieldAtFault)
{
    auto& setUp = halvern.SetUpfrm;
    setUp.Show();
    setUp.LatSigntxt.SetText("Q");
    setUp.SSTab1.Select(2);
    screen.Find<QPushButton>("SetUpfrm.TabOkCmd")->click();
    const auto* window = screen.windows->WindowOf(setUp);
    ASSERT_NE(window->focusWidget(), nullptr);
    EXPECT_EQ(window->focusWidget()->objectName(), "SetUpfrm.LatSigntxt");
    EXPECT_TRUE(setUp.SSTab1.On(0));
    const auto warnings = [&] {
        return std::ranges::count_if(window->findChildren<QLabel*>(), [](const QLabel* label) {
            return label->isVisible() && label->text().startsWith("\u26a0");
        });
    };
    EXPECT_EQ(warnings(), 0);
    setUp.CallSignTxt.SetText("n0call");
    setUp.SetTexts({"00", "00", "00", "N", "000", "00", "00", "W"});
    EXPECT_EQ(warnings(), 2);
    screen.Find<QPushButton>("SetUpfrm.TabOkCmd")->click();
    EXPECT_FALSE(window->isVisible());
    ShowNow();
    const auto* unsaved = screen.Find<QToolButton>("StatusLamps.Unsaved");
    EXPECT_TRUE(unsaved->isVisible());
    const TemporaryFolder folder;
    halvern.ProgramFolder = folder.Path();
    setUp.TabSaveCmd.Click();
    setUp.Show();
    setUp.Hide();
    ShowNow();
    EXPECT_FALSE(unsaved->isVisible());
}

/// News stand on their tab until it is looked at; own rows and what is brought back are none.
TEST_F(Desk, MailIsUnreadUntilItsTabIsSeen)
{
    const Mail mail(halvern, nullptr);
    const auto* tabs = screen.Find<QTabWidget>("MessageFrm.SSTab2");
    const auto hear = [&](const std::string& line) { screen.station.Hear("Q0ABC>APRS::" + line); };
    const auto dots = [&] {
        std::string shown;
        for (int tab = 0; tab < tabs->count(); ++tab) shown += tabs->tabIcon(tab).isNull() ? '-' : 'o';
        return shown + std::to_string(mail.Unread());
    };
    halvern.MessageFrm.MsgToYouLst.Add("Q0ABC>Q0OWN:1.from a file");
    EXPECT_EQ(dots(), "---0");
    for (const auto* line : {"Q0OWN    :hello{1", "Q0OWN    :hello{1", "Q0OWN    :again{2", "Q9XYZ    :to others"})
        hear(line);
    EXPECT_EQ(dots(), "oo-2") << "a repeat is heard once";
    halvern.MessageFrm.SetVisible(true); // on Traffic
    QApplication::setActiveWindow(&screen.windows->Main());
    ShowNow();
    EXPECT_EQ(dots(), "-o-2");
    halvern.MessageFrm.SSTab2.Select(SendTab);
    hear("Q0OWN    :seen{3");
    hear("BLN1     :for all");
    EXPECT_EQ(dots(), "--o0");
    halvern.MessageFrm.Hide();
    hear("Q0OWN    :unseen{4");
    EXPECT_EQ(dots(), "-oo1");
}

/// The texts of a row of a list's window, column by column.
QStringList TextsOf(const Screen& screen, const char* list, int row)
{
    ShowNow();
    const auto* model = screen.Find<RowsView>(list)->model();
    QStringList texts;
    for (int column = 0; column < model->columnCount(); ++column)
        texts += model->index(row, column).data().toString().trimmed();
    return texts;
}

/// Age and way stand beside the rows, which stay as they are; so does the time that weather rows bear at their end.
TEST_F(Desk, ListsReckonWhatTheirRowsLeaveOut)
{
    for (const auto* line : {"Q0OWN>APRS:!4049.14N/07308.41W-", "Q0FAR>APRS:@010000z4149.14N/07308.41W>late",
                             "Q0NEAR>APRS:!4049.14N/07309.73W_220/004g005t077"})
        screen.station.Hear(line);
    screen.station.time.Wait(130 * 60000);
    auto* view = screen.Find<RowsView>("PositionFrm.PosLst");
    EXPECT_EQ(TextsOf(screen, "PositionFrm.PosLst", 1).mid(0, 5).join('|'), "|Q0FAR|2 h 10 min|60.0|0\u00b0 N");
    view->sortByColumn(3, Qt::DescendingOrder); // the way
    EXPECT_EQ(TextsOf(screen, "PositionFrm.PosLst", 1).mid(0, 5).join('|'), "|Q0NEAR|2 h 10 min|1.0|270\u00b0 W");
    const auto& raw = halvern.TerminalFrm.RawPacketLst;
    EXPECT_TRUE(raw.Row(raw.Count() - 1).ends_with("t07701000000"));
    const auto row = TextsOf(screen, "TerminalFrm.RawPacketLst", raw.Count() - 1);
    EXPECT_EQ(row.join('|').toStdString(), "00:00:00|Q0NEAR>APRS:!4049.14N/07309.73W_220/004g005t077");
    emit view->doubleClicked(view->model()->index(0, 0)); // shows it on the map
    EXPECT_EQ(halvern.Map.MapRange, 16);
    EXPECT_NEAR(halvern.Map.MapCenterLat, 41.819, 0.001);
}

/// What became of each message stands beside its row, from the queue to the ack.
TEST_F(Desk, AMessageTellsWhatBecameOfIt)
{
    const auto states = [&] {
        QStringList texts;
        for (int row = 0; row < halvern.MessageFrm.MsgToYouLst.Count(); ++row)
            texts += TextsOf(screen, "MessageFrm.MsgToYouLst", row).mid(0, 2).join(' ').trimmed();
        return texts.join('|').toStdString();
    };
    screen.station.OpenTnc();
    screen.station.Type("Q0ABC", "one");
    screen.station.Type("Q0ABC", "two");
    EXPECT_EQ(states(), "00:00 waits, next 1 s|00:00 waits its turn");
    screen.station.time.Wait(45000);
    EXPECT_EQ(states(), "00:00 sent 4x, next 15 s|00:00 waits its turn");
    screen.station.Hear("Q0ABC>APRS::Q0OWN    :ack1");
    screen.station.Hear("Q0ABC>APRS::Q0OWN    :hello{7");
    screen.station.time.Wait(1000);
    EXPECT_EQ(states(), "00:00 received|00:00 sent 1x, next 3 s|00:00");
    auto* view = screen.Find<RowsView>("MessageFrm.MsgToYouLst");
    halvern.MessageFrm.SendCallTxt.SetText("");
    emit view->doubleClicked(view->model()->index(0, 0)); // answers
    EXPECT_TRUE(halvern.MessageFrm.Visible() && halvern.MessageFrm.SSTab2.On(SendTab));
    EXPECT_EQ(halvern.MessageFrm.SendCallTxt.Text(), "Q0ABC");
    halvern.ConMdiFrm.PortTnc.Click(); // closes it
    EXPECT_EQ(states(), "00:00 received|00:00 no port open|00:00");
}

/// The graph's own buttons: each kind of file holds what the window shows, and one that can't be written is told.
TEST_F(Desk, AGraphIsSavedAsPictureDrawingAndTable)
{
    const TemporaryFolder folder;
    auto& form = halvern.GraphFrm;
    form.LeftTitle = "Temperature";
    form.UpperBound = 130;
    form.Times = {"09 12:00:01", "09 12:10:02"};
    for (const auto* value : {"77", "78.5"}) form.GraphLst.Add(value);
    form.SetVisible(true);
    ShowNow();
    const auto buttons = screen.windows->WindowOf(form)->findChildren<QPushButton*>();
    const auto press = [&](const QString& text) {
        const auto is = [&](const QPushButton* button) { return button->text() == text; };
        const auto found = std::ranges::find_if(buttons, is);
        ASSERT_NE(found, buttons.end()) << text.toStdString();
        (*found)->click();
    };
    const auto save = [&](const std::string& name) {
        std::string said;
        QTimer answer;
        QObject::connect(&answer, &QTimer::timeout, [&] {
            auto* const box = QApplication::activeModalWidget();
            if (auto* const dialog = qobject_cast<QFileDialog*>(box)) {
                auto* const edit = dialog->findChild<QLineEdit*>("fileNameEdit");
                edit->setText(QString::fromStdString(folder.Path() + "/" + name));
                QMetaObject::invokeMethod(dialog, "accept");
            } else if (auto* const message = qobject_cast<QMessageBox*>(box)) {
                said = message->text().toStdString();
                message->accept();
            }
        });
        answer.start(0);
        press("&Save...");
        return said;
    };
    for (const auto* name : {"a.png", "a.svg", "a.csv"}) EXPECT_EQ(save(name), "") << name;
    EXPECT_EQ(QImage(QString::fromStdString(folder.Path() + "/a.png")).size().isEmpty(), false);
    EXPECT_THAT(*DiskFiles().Read(folder.Path() + "/a.svg"), HasSubstr("<svg"));
    EXPECT_EQ(*DiskFiles().Read(folder.Path() + "/a.csv"), "Report,Time,\"Temperature, \xC2\xB0"
                                                           "F\"\n1,09 12:00:01,77\n2,09 12:10:02,78.5\n");
    EXPECT_THAT(save("none/a.csv"), HasSubstr("could not be written"));
    QApplication::clipboard()->clear();
    press("Cop&y");
    EXPECT_FALSE(QApplication::clipboard()->pixmap().isNull());
}

} // namespace
} // namespace halvern::test
