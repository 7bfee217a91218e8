// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/FormWindow.h"

#include <QtWidgets>

#include "forms/FilterLine.h"
#include "forms/Glyphs.h"
#include "forms/Watching.h"

namespace halvern {
namespace {

QRect PixelsOf(const Place& place)
{
    return {place.left / TwipsPerPixel, place.top / TwipsPerPixel, place.width / TwipsPerPixel,
            place.height / TwipsPerPixel};
}

Place PlaceOf(const QRect& pixels)
{
    return {pixels.height() * TwipsPerPixel, pixels.x() * TwipsPerPixel, pixels.y() * TwipsPerPixel,
            pixels.width() * TwipsPerPixel, 0};
}

/// Moved and cut so that it lies within the area, since a place may come from a larger screen; but nothing is clipped.
QRect Within(QRect pixels, const QRect& area, QSize least)
{
    pixels.setSize(pixels.size().boundedTo(area.size()).expandedTo(least));
    pixels.moveLeft(std::clamp(pixels.left(), 0, std::max(0, area.width() - pixels.width())));
    pixels.moveTop(std::clamp(pixels.top(), 0, std::max(0, area.height() - pixels.height())));
    return pixels;
}

} // namespace

void PressCloseBox(Form& form)
{
    FromScreen(form, [&form] { form.PressCloseBox(); });
}

// --- inside the main window ------------------------------------------------------------------------------------------

ChildWindow::ChildWindow(Form& form, QWidget* content, const QString& title)
    : form(form), title(title), usualCaption(Shown(form.Caption()))
{
    setWidget(content);
    setObjectName(Shown(form.Name()));
    setAttribute(Qt::WA_DeleteOnClose, false);
    ShowTitle();
    hide();
    WatchFor(this, form, [this](const Change&) { Follow(); });
}

void ChildWindow::ShowTitle()
{
    const auto caption = Shown(form.Caption());
    setWindowTitle(caption == usualCaption ? title : caption);
    setAccessibleName(windowTitle());
}

/// Where it is placed it gets all that it needs; where many are tiled, as little as shows a row.
QSize ChildWindow::minimumSizeHint() const
{
    return QSize(14, 6) * fontMetrics().height();
}

void ChildWindow::Follow()
{
    ShowTitle();
    if (placing) return;
    if (!form.Visible()) {
        if (isHidden()) return;
        hide();
        emit CameOrWent();
        return;
    }
    const bool fresh = isHidden();
    ApplyPlace();
    if (!fresh) return;
    show();
    if (mdiArea() != nullptr) mdiArea()->setActiveSubWindow(this);
    emit CameOrWent();
}

void ChildWindow::ApplyPlace()
{
    if (mdiArea() == nullptr) return;
    const auto area = mdiArea()->viewport()->rect();
    const auto place = form.Place();
    placing = true;
    if (place.state == 0) {
        if (isMaximized() || isMinimized()) showNormal();
        const bool first = place == Place{};
        if (!first && PixelsOf(place) != placed) firstPlace = nullptr;
        placed = Within(first ? firstPlace(area) : PixelsOf(place), area, QMdiSubWindow::minimumSizeHint());
        setGeometry(placed);
    } else if (place.state == 1) {
        setWindowState(Qt::WindowMinimized);
    } else {
        setWindowState(Qt::WindowMaximized);
    }
    placing = false;
    NotePlace();
}

void ChildWindow::SetFirstPlace(FirstPlace place)
{
    firstPlace = std::move(place);
    placed = geometry();
}

void ChildWindow::FollowArea()
{
    if (firstPlace && isVisible() && geometry() == placed && !isMaximized() && !isMinimized()) {
        const auto area = mdiArea()->viewport()->rect();
        placed = Within(firstPlace(area), area, QMdiSubWindow::minimumSizeHint());
        setGeometry(placed);
    }
}

QRect ChildWindow::OperatorsPlace() const
{
    const bool own = !isMaximized() && !isMinimized() && !(firstPlace && geometry() == placed);
    return own && form.Place() != Place{} ? geometry() : QRect();
}

bool ChildWindow::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::Resize && mdiArea() != nullptr && object == mdiArea()->viewport())
        QTimer::singleShot(0, this, &ChildWindow::FollowArea);
    return QMdiSubWindow::eventFilter(object, event);
}

void ChildWindow::NotePlace()
{
    if (placing) return;
    auto place = form.Place();
    if (isMinimized() || isMaximized())
        place.state = isMinimized() ? 1 : 2;
    else
        place = PlaceOf(geometry());
    FromScreen(
        form, placing, [&] { form.SetPlace(place); }, [] {});
}

void ChildWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    PressCloseBox(form);
}

void ChildWindow::moveEvent(QMoveEvent* event)
{
    QMdiSubWindow::moveEvent(event);
    if (isVisible()) NotePlace();
}

void ChildWindow::resizeEvent(QResizeEvent* event)
{
    QMdiSubWindow::resizeEvent(event);
    if (isVisible()) NotePlace();
}

void ChildWindow::changeEvent(QEvent* event)
{
    QMdiSubWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange && isVisible()) NotePlace();
}

// --- dialogs ---------------------------------------------------------------------------------------------------------

DialogWindow::DialogWindow(Form& form, QWidget* parent) : QDialog(parent), form(form)
{
    setObjectName(Shown(form.Name()));
    Follow();
    WatchFor(this, form, [this](const Change&) { Follow(); });
}

void DialogWindow::Follow()
{
    setWindowTitle(Shown(form.Caption()));
    setAccessibleName(windowTitle());
    if (aside || form.Visible() == isVisible()) return;
    if (!form.Visible()) {
        hide();
        return parentWidget()->activateWindow();
    }
    const bool quietly = form.Directory().Present().station; // nobody's keys are taken away
    setAttribute(Qt::WA_ShowWithoutActivating, quietly);
    if (!inTheCorner || !testAttribute(Qt::WA_Moved)) adjustSize();
    if (inTheCorner && !testAttribute(Qt::WA_Moved)) {
        const auto room = parentWidget()->geometry();
        const auto* bar = parentWidget()->findChild<QStatusBar*>(); // its right end says how many notices there are
        const QPoint above(0, bar == nullptr ? 0 : bar->height());
        move(room.bottomRight() - rect().bottomRight() - above - QPoint(1, 1) * fontMetrics().height() * 2);
    }
    show();
    if (quietly) return;
    raise();
    activateWindow();
    FocusFirst();
}

void DialogWindow::StepAside()
{
    aside = true;
    hide();
}

void DialogWindow::ComeBack()
{
    aside = false;
    if (!form.Visible()) return;
    show(); // where it was
    raise();
    activateWindow();
}

/// The keys go to the first field or list, and not to the tabs or the filter above it.
void DialogWindow::FocusFirst()
{
    for (auto* widget = nextInFocusChain(); widget != this; widget = widget->nextInFocusChain())
        if ((widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isVisible() && widget->isEnabled() &&
            widget->focusProxy() == nullptr && qobject_cast<QTabBar*>(widget) == nullptr &&
            qobject_cast<FilterLine*>(widget) == nullptr)
            return widget->setFocus();
}

void DialogWindow::reject()
{
    if (escape == nullptr)
        PressCloseBox(form);
    else if (escape->Enabled() && escape->Visible())
        FromScreen(form, [this] { escape->Click(); });
}

void DialogWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    PressCloseBox(form);
}

} // namespace halvern
