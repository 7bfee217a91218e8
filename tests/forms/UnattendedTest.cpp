// SPDX-License-Identifier: GPL-3.0-or-later
// What comes from outside never makes the station wait, through the real windows and the real dialogs.
#include <malloc.h>
#ifdef __SANITIZE_ADDRESS__
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

#include "forms/Screen.h"
#include "state/Rows.h"
#include "support/qt/Application.h"

namespace halvern::test {
namespace {

/// Bytes of the heap that are in use.
std::size_t LiveHeap()
{
#ifdef __SANITIZE_ADDRESS__
    return __sanitizer_get_current_allocated_bytes();
#else
    return ::mallinfo2().uordblks;
#endif
}

struct Unattended : testing::Test {
    /// A frame whose repeat is refused: its second digipeater is called "A-99".
    std::string RefusedFrame(int number) const
    {
        auto frame = FrameOf("Q1X" + std::to_string(number % 100) + ">APRS,Q0OWN,AB99:hello");
        frame[frame.find("\x84\x72")] = '-' * 2;
        return frame;
    }
    void HearMove(int number)
    {
        screen.station.Hear("Q1CAR>APRS:!40" + std::to_string(10 + number % 50) + ".14N/07308.41W>", "TCPIP");
    }

    QtDialogs dialogs;
    Screen screen{&dialogs};
    Halvern& halvern = screen.halvern;
    List& notices = halvern.NoticesFrm.NoticeLst;
};

TEST_F(Unattended, TenThousandMessagesOpenNoBoxAndCostNoMemory)
{
    constexpr int messages = 10000, warmUp = 2000, alarmEach = 20;
    halvern.ConMdiFrm.SoundCardMenu.Click();
    halvern.MapFrm.Show();
    HearMove(0);
    auto& stations = halvern.PositionFrm.PosLst;
    stations.Replace(stations.Count() - 1, WithMark(stations.Row(stations.Count() - 1), mark::Alarm));
    const int before = halvern.TerminalFrm.RawPacketLst.Count();

    int heard = 0, boxes = 0, deepest = 0;
    std::size_t heap = 0;
    QTimer outside; // goes on ticking in the loop of a box, as a port does
    QObject::connect(&outside, &QTimer::timeout, [&] {
        deepest = std::max(deepest, QThread::currentThread()->loopLevel());
        if (auto* box = QApplication::activeModalWidget()) {
            ++boxes;
            return box->close() ? void() : outside.stop();
        }
        for (int burst = 0; burst < 50 && heard < messages; ++burst) {
            if (++heard == warmUp) heap = LiveHeap();
            if (heard % alarmEach == 0)
                HearMove(heard / alarmEach);
            else
                halvern.ConMdiFrm.SoundSoc.Arrived(RefusedFrame(heard));
        }
    });
    outside.start(0);
    ASSERT_TRUE(RunUntil([&] { return heard == messages || boxes > 0; }, 120000));
    outside.stop();
    EXPECT_EQ(boxes, 0);
    EXPECT_LE(deepest, 1) << "event loops in one another";
    EXPECT_LT(LiveHeap() - heap, 4U << 20) << "of which the packets that are kept take a half";
    EXPECT_EQ(halvern.TerminalFrm.RawPacketLst.Count() - before, messages);
    ASSERT_EQ(notices.Count(), 2);
    EXPECT_EQ(noticeRow::Times(notices.Row(0)), "9500  ");
    EXPECT_EQ(noticeRow::Times(notices.Row(1)), "500   ");
}

TEST_F(Unattended, NoticesComeUpWithoutTakingTheKeysAndTheStatusBarCountsThem)
{
    auto& form = halvern.NoticesFrm;
    auto* window = screen.windows->WindowOf(form);
    auto& main = screen.windows->Main();
    auto* mark = screen.Find<QToolButton>("ConMdiFrm.NoticesCmd");
    main.activateWindow();
    EXPECT_FALSE(mark->isVisible());
    const int high = main.statusBar()->height();
    halvern.Note({"TCP/IP port", "Connection refused"});
    ShowNow();
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(window->isModal());
    EXPECT_TRUE(window->testAttribute(Qt::WA_ShowWithoutActivating));
    EXPECT_EQ(mark->text(), "1 notice");
    EXPECT_EQ(main.statusBar()->height(), high) << "the map would be drawn anew";
    EXPECT_TRUE(main.geometry().contains(window->geometry()));
    window->close();
    halvern.Note({"TCP/IP port", "Connection refused"});
    ShowNow();
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(mark->text(), "1 notice, 1 new");
    mark->click();
    EXPECT_TRUE(window->isVisible());
    screen.Find<QPushButton>("NoticesFrm.ClearCmd")->click();
    EXPECT_EQ(notices.Count(), 0);
    EXPECT_FALSE(mark->isVisible());
}

/// Whatever a packet or a timer would ask is answered harmlessly, and no form waits.
TEST_F(Unattended, NobodyIsAskedWhereTheStationActsByItself)
{
    const StationActs acts(halvern.All, "Q1ABC");
    EXPECT_EQ(static_cast<Dialogs&>(dialogs).Question("Send it?"), Answer::No);
    EXPECT_FALSE(static_cast<Dialogs&>(dialogs).Input("Which?"));
    EXPECT_FALSE(dialogs.File({}));
    EXPECT_FALSE(dialogs.PickFont("Font", {}));
    dialogs.ShowModal(halvern.SetUpfrm);
    EXPECT_FALSE(halvern.SetUpfrm.Visible());
}

} // namespace
} // namespace halvern::test
