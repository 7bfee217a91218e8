// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/Screen.h"

namespace halvern::test {
namespace {

/// The windows as an operator works them: keys and clicks go in, and the state is looked at.
struct Operator : testing::Test {
    Screen screen;
    Halvern& halvern = screen.halvern;
    SetUpForm& setUp = halvern.SetUpfrm;

    template <class Widget> Widget* Find(const Control& control) const
    {
        auto* widget = screen.windows->Main().findChild<Widget*>(QString::fromStdString(control.Name()));
        EXPECT_NE(widget, nullptr) << control.Name();
        return widget;
    }
    void OpenSetUp()
    {
        setUp.Show();
        QApplication::setActiveWindow(screen.windows->WindowOf(setUp));
    }
    /// A key that has no code of its own, as an input method sends it.
    static void Type(QWidget* widget, const QString& text)
    {
        for (const auto c : text) {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
            QApplication::sendEvent(widget, &press);
        }
    }
};

TEST_F(Operator, TypesIntoAFieldAndLeavesIt)
{
    OpenSetUp();
    auto* call = Find<QLineEdit>(setUp.CallSignTxt);
    setUp.CallSignTxt.SetText("");
    call->setFocus();
    QTest::keyClicks(call, "q0abcdefg");
    EXPECT_EQ(setUp.CallSignTxt.Text(), "q0abcd");
    EXPECT_EQ(call->text(), "q0abcd");
    Find<QLineEdit>(setUp.CommentTXT)->setFocus();
    EXPECT_EQ(setUp.CallSignTxt.Text(), "Q0ABCD") << "leaving raises the case";
    EXPECT_EQ(call->text(), "Q0ABCD");
    auto* sign = Find<QLineEdit>(setUp.LatSigntxt);
    setUp.LatSigntxt.SetText("");
    QTest::keyClicks(sign, "s");
    EXPECT_EQ(sign->text(), "S") << "the character that a rule made of the key";
    EXPECT_TRUE(setUp.Latlbl.Caption().ends_with('S'));
}

TEST_F(Operator, KeepsHisPlaceInALineAndHearsNoEchoOfHisTyping)
{
    int changes = 0;
    auto& text = halvern.MessageFrm.MsgTxt;
    text.SetText("helo");
    text.OnChange = [&] { ++changes; };
    text.OnKey = [&](int& key) {
        if (key == 13) text.SetText("");
    };
    auto* line = Find<QLineEdit>(text);
    line->setCursorPosition(3);
    QTest::keyClicks(line, "l");
    EXPECT_EQ(text.Text(), "hello");
    EXPECT_EQ(line->cursorPosition(), 4);
    EXPECT_EQ(changes, 1);
    QTest::keyClick(line, Qt::Key_Return);
    EXPECT_EQ(line->text(), "");
}

TEST_F(Operator, TypesUtf8ThatFitsAsBytes)
{
    OpenSetUp();
    auto* comment = Find<QLineEdit>(setUp.CommentTXT);
    comment->clear();
    setUp.CommentTXT.SetText("Gr\xFC\xDF"
                             "e"); // as it came from an old file
    EXPECT_EQ(comment->text(), QStringLiteral("Gr\u00fc\u00dfe"));
    comment->setText({});
    Type(comment, QString(60, QChar(0xFC)));
    EXPECT_EQ(setUp.CommentTXT.Text().size(), 42U) << "43 bytes, less the half of a character";
    EXPECT_EQ(comment->text(), QString(21, QChar(0xFC)));
}

TEST_F(Operator, PicksFromChoicesTabsNumbersAndCombos)
{
    OpenSetUp();
    screen.windows->Main().findChild<QRadioButton*>("SetUpfrm.AprsMode(2)")->click();
    EXPECT_EQ(setUp.AprsMode.Selected(), 2);
    EXPECT_TRUE(Find<QLineEdit>(setUp.AltNetTxt)->isEnabled());
    Find<QTabWidget>(setUp.SSTab1)->setCurrentIndex(4);
    EXPECT_EQ(setUp.SSTab1.Selected(), 4);
    Find<QSpinBox>(setUp.SSIDLBL)->setValue(7);
    EXPECT_EQ(setUp.SSIDLBL.Caption(), "7");
    setUp.SSIDLBL.SetCaption("12");
    EXPECT_EQ(Find<QSpinBox>(setUp.SSIDLBL)->value(), 12);
    auto* speed = Find<QComboBox>(setUp.PortSpeedLst);
    QTest::keyClick(speed, Qt::Key_End);
    EXPECT_EQ(setUp.PortSpeedLst.Selected(), setUp.PortSpeedLst.Count() - 1);
    setUp.PortSpeedLst.Select(2);
    EXPECT_EQ(speed->currentIndex(), 2);
}

TEST_F(Operator, PressesButtonsAndEscapeForCancel)
{
    OpenSetUp();
    int cancels = 0, helps = 0;
    setUp.HelpCmd.OnClick = [&] { ++helps; };
    QTest::mouseClick(Find<QPushButton>(setUp.HelpCmd), Qt::LeftButton);
    EXPECT_EQ(helps, 1);
    setUp.TabCancelCmd.OnClick = [&] { ++cancels; };
    auto* window = screen.windows->WindowOf(setUp);
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_EQ(cancels, 1);
    EXPECT_TRUE(window->isVisible()) << "the form decides";
    setUp.TabCancelCmd.SetEnabled(false);
    EXPECT_FALSE(Find<QPushButton>(setUp.TabCancelCmd)->isEnabled());
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_EQ(cancels, 1);
}

TEST_F(Operator, TakesTheFirstCallFoundByEnter)
{
    auto& form = halvern.FindFoundFrm;
    std::string taken;
    form.OkCmd.OnClick = [&] { taken = form.CallSignLst.Text(); };
    form.SetVisible(true);
    for (const char* row : {"Q0XYZ", "Q0ABC"}) form.CallSignLst.Add(row);
    ShowNow();
    EXPECT_EQ(form.CallSignLst.Selected(), -1) << "it is offered only";
    QTest::keyClick(Find<QTableView>(form.CallSignLst), Qt::Key_Return);
    EXPECT_EQ(taken, "Q0ABC");
}

} // namespace
} // namespace halvern::test
