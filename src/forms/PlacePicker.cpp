// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/PlacePicker.h"

#include <QtWidgets>
#include <utility>

namespace halvern {

PlacePicker::PlacePicker(MapView& map, Done done) : QObject(&map), map(map), done(std::move(done))
{
    if (auto* window = qobject_cast<QMdiSubWindow*>(map.parentWidget()->parentWidget())) {
        if (window->isMinimized()) window->showNormal();
        window->mdiArea()->setActiveSubWindow(window);
    }
    map.window()->activateWindow();
    map.setFocus();
    QGuiApplication::setOverrideCursor(Qt::CrossCursor);
    qApp->installEventFilter(this);
}

bool PlacePicker::eventFilter(QObject* object, QEvent* event)
{
    auto* widget = qobject_cast<QWidget*>(object);
    if (!done || widget == nullptr || widget->window() != map.window()) return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
        return Pointer(widget, static_cast<QMouseEvent*>(event));
    case QEvent::Wheel:
        return widget != &map;
    case QEvent::KeyPress:
        return Key(static_cast<QKeyEvent*>(event));
    case QEvent::ShortcutOverride: // what is accepted here is no shortcut
        event->accept();
        return true;
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ContextMenu:
        return true;
    default:
        return false;
    }
}

bool PlacePicker::Pointer(QWidget* widget, const QMouseEvent* event)
{
    const bool onMap = widget == &map && event->button() == Qt::LeftButton && map.rect().contains(event->pos());
    const bool release = event->type() == QEvent::MouseButtonRelease;
    if (onMap && release && pressed) Finish(map.PlaceAt(event->position()));
    pressed = onMap && !release;
    if (done) map.setFocus(); // a press beside it has taken the keys away
    return true;
}

bool PlacePicker::Key(const QKeyEvent* event)
{
    static constexpr int movesTheMap[] = {Qt::Key_Left, Qt::Key_Right,  Qt::Key_Up,    Qt::Key_Down,    Qt::Key_Home,
                                          Qt::Key_Plus, Qt::Key_PageUp, Qt::Key_Minus, Qt::Key_PageDown};
    if (event->key() == Qt::Key_Escape) Finish({});
    const bool plain = (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) == 0;
    return !map.hasFocus() || !plain || std::ranges::find(movesTheMap, event->key()) == std::end(movesTheMap);
}

void PlacePicker::Finish(std::optional<MapView::Place> place)
{
    const auto tell = std::exchange(done, nullptr);
    if (!tell) return;
    qApp->removeEventFilter(this);
    QGuiApplication::restoreOverrideCursor();
    deleteLater();
    tell(place);
}

} // namespace halvern
