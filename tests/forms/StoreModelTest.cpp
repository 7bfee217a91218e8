// SPDX-License-Identifier: GPL-3.0-or-later
#include <QSignalSpy>
#include <random>

#include "forms/FilterLine.h"
#include "forms/RowsView.h"
#include "forms/Screen.h"

namespace halvern::test {
namespace {

struct StoreForm : Form {
    explicit StoreForm(Controls& all) : Form(all, "StoreFrm", "") {}
    List Store{*this, "Store"};
};

struct RowsTest : testing::Test {
    Controls all;
    StoreForm form{all};
    List& store = form.Store;
    void Fill(int count, const std::string& prefix = "row ")
    {
        for (int i = 0; i < count; ++i) store.Add(prefix + std::to_string(i));
    }
};

QString TextAt(const StoreModel& model, int row)
{
    return model.data(model.index(row, 0), Qt::DisplayRole).toString();
}

TEST_F(RowsTest, AreAnnouncedTogetherAndReadAsEmptyWhenGoneBefore)
{
    StoreModel model(store, {}, StoreModel::Pace::Collected, false, nullptr);
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    Fill(10000);
    EXPECT_EQ(model.rowCount(), 0);
    ShowNow();
    EXPECT_EQ(model.rowCount(), 10000);
    EXPECT_EQ(inserted.size(), 1);
    EXPECT_EQ(TextAt(model, 9999), "row 9999");
    store.Clear();
    EXPECT_EQ(model.rowCount(), 10000);
    EXPECT_EQ(TextAt(model, 9999), "");
    ShowNow();
    EXPECT_EQ(model.rowCount(), 0);
}

/// Whatever happens to a store, a persistent index follows its row, as a reader's place does.
TEST_F(RowsTest, KeepTheirIdentityThroughAnyChanges)
{
    std::mt19937 random(7);
    Fill(200);
    StoreModel model(store, {}, StoreModel::Pace::Collected, true, nullptr);
    for (int round = 0; round < 60; ++round) {
        const int place = static_cast<int>(random() % store.Count());
        const auto kept = store.Row(place);
        const QPersistentModelIndex index = model.index(place, 0);
        for (unsigned step = random() % 30; step-- > 0;) {
            const int at = static_cast<int>(random() % store.Count());
            const bool keptRow = store.Row(at) == kept;
            switch (random() % 4) {
            case 0:
                store.Insert("new " + std::to_string(random()), at);
                break;
            case 1:
                if (!keptRow && store.Count() > 20) store.Remove(at);
                break;
            case 2:
                if (!keptRow) store.Replace(at, "other " + std::to_string(random()));
                break;
            default:
                if (!keptRow) {
                    store.Remove(at);
                    store.Insert("again " + std::to_string(random()), at);
                }
            }
        }
        model.Apply();
        ASSERT_EQ(model.rowCount(), store.Count());
        ASSERT_TRUE(index.isValid());
        ASSERT_EQ(TextAt(model, index.row()).toStdString(), kept);
    }
}

struct View : RowsTest {
    std::unique_ptr<RowsView> view;
    void SetUp() override
    {
        Fill(500);
        view = std::make_unique<RowsView>(store, RowsLook{{{1, 0, "Row", ""}}}, nullptr);
        view->resize(300, 200);
        view->show();
        ShowNow();
    }
    int Top() const { return view->rowAt(0); }
};

TEST_F(View, KeepsTheReadersPlaceWhileTenThousandRowsArrive)
{
    view->verticalScrollBar()->setValue(250);
    view->selectRow(252);
    for (int batch = 0; batch < 10; ++batch) {
        for (int i = 0; i < 500; ++i) store.Add("later");
        for (int i = 0; i < 500; ++i) store.Insert("earlier", 0);
        ShowNow();
    }
    ShowNow();
    EXPECT_EQ(store.Row(Top()), "row 250");
    EXPECT_EQ(store.Row(view->currentIndex().row()), "row 252");
    EXPECT_EQ(store.Selected(), view->currentIndex().row());
    EXPECT_EQ(store.Selected(), view->StoreRow(view->currentIndex()));
}

TEST_F(View, FollowsTheEndOnlyForAReaderAtTheEnd)
{
    RowsView tail(store, RowsLook{{}, false, true}, nullptr);
    tail.resize(300, 200);
    tail.show();
    tail.scrollToBottom();
    ShowNow();
    Fill(100, "later ");
    ShowNow();
    auto* bar = tail.verticalScrollBar();
    store.Add(std::string(200, 'x')); // wider than the window: a scroll bar comes at the foot
    for (const int height : {400, 120, 260}) {
        tail.resize(300, height);
        Fill(5, "later ");
        ShowNow();
        EXPECT_EQ(bar->value(), bar->maximum()) << "only the operator's own scrolling leaves the end";
        const auto last = tail.visualRect(tail.model()->index(store.Count() - 1, 0));
        EXPECT_TRUE(tail.viewport()->rect().contains(last.bottomLeft())) << "it is seen whole";
    }
    QTest::keyClick(&tail, Qt::Key_Home, Qt::ControlModifier);
    bar->triggerAction(QScrollBar::SliderSingleStepAdd);
    EXPECT_EQ(bar->value(), 1);
    Fill(100, "last ");
    ShowNow();
    EXPECT_EQ(bar->value(), 1);
    bar->triggerAction(QScrollBar::SliderToMaximum);
    Fill(100, "last ");
    ShowNow();
    EXPECT_EQ(bar->value(), bar->maximum());
}

/// Sorted and filtered, the rows that are shown are those of the store, in order, whatever happened to it; the row
/// picked and the rows marked are the same ones.
TEST_F(RowsTest, StandInOrderAndInChoiceThroughAnyChanges)
{
    std::mt19937 random(11);
    const auto number = [](std::string_view row) { return std::strtod(std::string(row.substr(4)).c_str(), nullptr); };
    const auto fresh = [&] { return "row " + std::to_string(random() % 900); };
    for (int i = 0; i < 300; ++i) store.Add(fresh());
    StoreModel model(store, {{1, 0, "Row", "", {}, number}}, StoreModel::Pace::Collected, true, nullptr);
    SortedRows sorted(model, nullptr);
    sorted.sort(0, Qt::DescendingOrder);
    for (int round = 0; round < 80; ++round) {
        sorted.FilterBy(round % 3 == 0 ? "" : "1");
        for (unsigned step = random() % 40; step-- > 0;) {
            const int at = static_cast<int>(random() % store.Count());
            const auto act = random() % 5;
            if (act < 2) store.Insert(fresh(), at);
            if (act == 2 && store.Count() > 20) store.Remove(at);
            if (act == 3) store.Replace(at, fresh());
            if (act == 4) store.Add(fresh());
        }
        model.Apply();
        std::vector<double> wanted, shown;
        for (int row = 0; row < store.Count(); ++row)
            if (round % 3 == 0 || store.Row(row).find('1') != std::string::npos)
                wanted.push_back(number(store.Row(row)));
        for (int row = 0; row < sorted.rowCount(); ++row) {
            const int stored = sorted.StoreRow(sorted.index(row, 0));
            shown.push_back(number(store.Row(stored)));
            ASSERT_EQ(sorted.ShownRow(stored).row(), row);
        }
        std::ranges::sort(wanted, std::greater());
        ASSERT_EQ(shown, wanted) << round;
    }
}

/// Typing goes to a row and marks none; Space, Shift and Ctrl mark. The filter keeps what is marked in sight.
TEST_F(RowsTest, ArePickedByWhatMarksAndNeverByTyping)
{
    List stations{form, "Stations", ListStyle::MultiRows};
    for (const auto* call : {"Q8JX", "Q1WT-2", "Q3MSP-1", "Q8GX-14", "Q1AB"}) stations.Add(call);
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    RowsLook look;
    look.picker = true;
    auto* view = new RowsView(stations, look, &window);
    layout->addWidget(view);
    auto* filter = view->ShowFilter();
    window.show();
    QApplication::setActiveWindow(&window);
    view->setFocus();
    const auto marks = [&] {
        std::string marked;
        for (int row = 0; row < stations.Count(); ++row) marked += stations.Marked(row) ? 'x' : '.';
        return marked;
    };
    const auto click = [&](int row, Qt::KeyboardModifiers keys) {
        QTest::mouseClick(view->viewport(), Qt::LeftButton, keys,
                          view->visualRect(view->model()->index(row, 0)).center());
    };
    click(0, {}); // sorted: Q1AB Q1WT-2 Q3MSP-1 Q8GX-14 Q8JX
    click(2, Qt::ShiftModifier);
    EXPECT_EQ(marks(), ".xx.x");
    click(1, Qt::ControlModifier);
    EXPECT_EQ(marks(), "..x.x");
    QTest::keyClicks(view, "q8j");
    EXPECT_EQ(view->StoreRow(view->currentIndex()), 0);
    EXPECT_EQ(marks(), "..x.x") << "typing marks nothing";
    QTest::keyClick(view, Qt::Key_Space);
    EXPECT_EQ(marks(), "x.x.x");
    QTest::keyClick(view, Qt::Key_Slash);
    EXPECT_TRUE(filter->hasFocus());
    QTest::keyClicks(filter, "gx");
    EXPECT_EQ(view->model()->rowCount(), 4) << "what is marked stays in sight";
    EXPECT_EQ(marks(), "x.x.x");
    QTest::keyClick(filter, Qt::Key_Escape);
    EXPECT_EQ(view->model()->rowCount(), 5);
    EXPECT_EQ(marks(), "x.x.x");
}

} // namespace
} // namespace halvern::test
