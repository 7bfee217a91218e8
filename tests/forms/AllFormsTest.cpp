// SPDX-License-Identifier: GPL-3.0-or-later
#include <set>

#include "forms/Screen.h"
#include "platform/Ports.h"

namespace halvern::test {
namespace {

std::vector<Form*> FormsOf(Halvern& halvern)
{
    std::vector<Form*> forms;
    for (auto* control : halvern.All.All())
        if (auto* form = dynamic_cast<Form*>(control)) forms.push_back(form);
    return forms;
}

/// What has nothing to show: timers and ports, surfaces off the screen, queues and the copies for display ("Sh...").
bool IsNeverShown(Control& control)
{
    static const std::set<std::string_view> names{"ConMdiFrm.MyObjectLst",
                                                  "ConMdiFrm.TransmitLst",
                                                  "ConMdiFrm.HeardOnRfLst",
                                                  "ConMdiFrm.IgMesSaveTxt",
                                                  "ConMdiFrm.DecisionLst",
                                                  "MessageFrm.OutMsg",
                                                  "MapFrm.Pic1",
                                                  "MapFrm.Pic2",
                                                  "MapFrm.PrintPicBox",
                                                  "MapFrm.SymPic",
                                                  "MapFrm.SymLbl"};
    return dynamic_cast<Timer*>(&control) != nullptr || dynamic_cast<Port*>(&control) != nullptr ||
           names.contains(control.Name()) || Holds(control.Name(), "Frm.Sh");
}

struct AllForms : testing::Test {
    Screen screen;
    QWidget* WindowOf(const Form& form) const { return screen.windows->WindowOf(form); }
};

TEST_F(AllForms, HaveWindowsAndEveryControlAWidgetByItsName)
{
    for (auto* form : FormsOf(screen.halvern)) ASSERT_NE(WindowOf(*form), nullptr) << form->Name();
    for (auto* control : screen.halvern.All.All()) {
        if (IsNeverShown(*control) || dynamic_cast<Form*>(control) != nullptr) continue;
        const auto* widget = screen.windows->Main().findChild<QObject*>(QString::fromStdString(control->Name()));
        EXPECT_NE(widget, nullptr) << control->Name();
    }
}

/// A menu opens by itself, and no event brings up the form of the pages: they go to the operator's own browser.
TEST_F(AllForms, OfferNothingThatNobodyHandles)
{
    for (auto* control : screen.halvern.All.All()) {
        const auto* item = dynamic_cast<MenuItem*>(control);
        const auto* button = dynamic_cast<Button*>(control);
        if ((item == nullptr || item->OnClick) && (button == nullptr || button->OnClick)) continue;
        const auto name = QString::fromStdString(control->Name());
        if (name.startsWith("browfrm.")) continue;
        const auto* action = screen.windows->Main().findChild<QAction*>(name);
        const auto* widget = screen.windows->Main().findChild<QAbstractButton*>(name);
        EXPECT_FALSE((action != nullptr && action->isEnabled() && action->menu() == nullptr) ||
                     (widget != nullptr && widget->isEnabled()))
            << control->Name();
    }
}

TEST_F(AllForms, SayTheirNamesToAScreenReader)
{
    for (const auto* widget : screen.windows->Main().findChildren<QWidget*>()) {
        const auto* control = screen.halvern.All.Find(widget->objectName().toStdString());
        if (control == nullptr) continue;
        const auto spoken =
            QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget))->text(QAccessible::Name);
        if (const auto* label = qobject_cast<const QLabel*>(widget))
            EXPECT_TRUE(label->text().isEmpty() || spoken == label->text()) << control->Name();
        else
            EXPECT_TRUE(!widget->accessibleName().isEmpty() && spoken.startsWith(widget->accessibleName()))
                << control->Name() << ": " << spoken.toStdString();
    }
    for (auto* button : screen.windows->Main().findChildren<QToolButton*>())
        EXPECT_FALSE(QAccessible::queryAccessibleInterface(button)->text(QAccessible::Name).contains("PanMap"));
    for (const auto* view : screen.windows->Main().findChildren<QTableView*>()) { // no two columns sound alike
        QStringList columns;
        for (int i = 0; i < view->model()->columnCount(); ++i)
            columns += view->model()->headerData(i, Qt::Horizontal, Qt::AccessibleTextRole).toString();
        columns.removeAll({});
        EXPECT_EQ(columns.removeDuplicates(), 0) << view->objectName().toStdString();
    }
}

/// Mnemonics that are on the screen together differ.
TEST_F(AllForms, HaveNoMnemonicTwice)
{
    for (auto* form : FormsOf(screen.halvern)) {
        if (form == &screen.halvern.ConMdiFrm) continue;
        const auto* window = WindowOf(*form);
        QHash<QString, QString> owners;
        for (auto* widget : window->findChildren<QWidget*>()) {
            const auto text = widget->property(widget->inherits("QGroupBox") ? "title" : "text").toString();
            const bool takes =
                widget->inherits("QLabel") || widget->inherits("QAbstractButton") || widget->inherits("QGroupBox");
            const auto key = takes ? QKeySequence::mnemonic(text).toString() : QString();
            if (key.isEmpty()) continue;
            auto* page = widget->parentWidget();
            while (page != window && !page->parentWidget()->inherits("QStackedWidget")) page = page->parentWidget();
            const auto place = QString::number(page == window ? 0 : reinterpret_cast<quintptr>(page));
            for (const auto& where : {place, QStringLiteral("0")})
                EXPECT_TRUE(!owners.contains(where + key) || owners[where + key] == text)
                    << form->Name() << " " << key.toStdString() << ": " << text.toStdString() << " and "
                    << owners[where + key].toStdString();
            owners.insert(place + key, text);
        }
    }
}

/// Texts that are wider than their place.
std::vector<std::string> ClippedIn(const QWidget* window)
{
    std::vector<std::string> clipped;
    for (const auto* widget : window->findChildren<QWidget*>()) {
        const auto* label = qobject_cast<const QLabel*>(widget);
        const bool plain = label != nullptr && !label->wordWrap();
        if (!widget->isVisible() || !(plain || widget->inherits("QAbstractButton") || widget->inherits("QComboBox")))
            continue;
        if (widget->width() < widget->minimumSizeHint().width() ||
            widget->height() < widget->minimumSizeHint().height())
            clipped.push_back(widget->property("text").toString().toStdString() + widget->objectName().toStdString());
    }
    return clipped;
}

TEST_F(AllForms, ClipNothingAndFitOnASmallScreen)
{
    screen.windows->Main().resize(1366, 768);
    const QString folder = qEnvironmentVariable("HALVERN_PICTURES");
    for (auto* form : FormsOf(screen.halvern)) {
        auto* tabs = WindowOf(*form)->findChild<QTabWidget*>();
        form->SetVisible(true);
        for (int page = 0; page < (tabs != nullptr ? tabs->count() : 1); ++page) {
            if (tabs != nullptr) tabs->setCurrentIndex(page);
            ShowNow();
            const auto* window = WindowOf(*form);
            EXPECT_THAT(ClippedIn(window), IsEmpty()) << form->Name() << " page " << page;
            EXPECT_LE(window->width(), 1366) << form->Name();
            EXPECT_LE(window->height(), form == &screen.halvern.ConMdiFrm ? 768 : 720) << form->Name();
            if (!folder.isEmpty())
                WindowOf(*form)->grab().save(
                    QStringLiteral("%1/%2-%3.png").arg(folder, QString::fromStdString(form->Name())).arg(page));
        }
        if (form != &screen.halvern.ConMdiFrm) form->SetVisible(false);
    }
}

} // namespace
} // namespace halvern::test
