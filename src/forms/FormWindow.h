// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QMdiSubWindow>
#include <functional>

#include "platform/Controls.h"
#include "platform/Form.h"

/// The two kinds of windows that forms get: inside the main window, or dialogs above it. Both show when the form is
/// visible, bear its caption, and hand the close box to the form, which decides.
namespace halvern {

/// Where a window stands that was never placed, in pixels of the area it stands in.
using FirstPlace = std::function<QRect(const QRect& area)>;

/// A window in the main area.
class ChildWindow final : public QMdiSubWindow {
    Q_OBJECT
public:
    /// The content becomes the window's own.
    /// @param title  stands for the form's caption as long as that is the one it has now
    ChildWindow(Form& form, QWidget* content, const QString& title);
    /// From now on it stands where this says, until the operator moves it.
    void SetFirstPlace(FirstPlace place);
    /// As long as nobody has moved the window, it keeps its share of the area.
    void FollowArea();
    /// Where the operator has put it; an invalid rectangle where he left it alone, or let it fill the area.
    QRect OperatorsPlace() const;
    QSize minimumSizeHint() const override;

signals:
    void CameOrWent();

protected:
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void Follow();
    void ShowTitle();
    void ApplyPlace();
    void NotePlace();

    Form& form;
    const QString title, usualCaption;
    FirstPlace firstPlace;
    QRect placed; ///< as it was placed last, not by the operator
    bool placing = false;
};

/// A window above the main one.
class DialogWindow final : public QDialog {
    Q_OBJECT
public:
    DialogWindow(Form& form, QWidget* parent);
    /// The button that Escape presses.
    void SetEscape(Button& button) { escape = &button; }
    /// Leaves the screen for a while, although the form stays up.
    void StepAside();
    void ComeBack();
    /// Comes up in the lower right corner of its parent, where it covers little, and not in its middle.
    void StandInTheCorner() { inTheCorner = true; }
    void reject() override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void Follow();
    void FocusFirst();
    Form& form;
    Button* escape = nullptr;
    bool aside = false;
    bool inTheCorner = false;
};

/// What the close box does: the form's own answer, or else the form goes.
void PressCloseBox(Form& form);

} // namespace halvern
