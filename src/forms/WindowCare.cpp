// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/WindowCare.h"

#include <QtWidgets>

#include "forms/Glyphs.h"
#include "forms/Watching.h"

namespace halvern {
namespace {

bool IsOpen(const QMdiSubWindow* window)
{
    return !window->isHidden() && !window->isMinimized();
}

QString PlaceKey(const QWidget* window)
{
    return QStringLiteral("Places/%1").arg(window->objectName());
}

/// Windows in rows of `columns` over a part of the area; those of a short last row share its whole width.
void Spread(const QList<ChildWindow*>& windows, const QRect& part, qsizetype columns)
{
    const auto rows = (windows.size() + columns - 1) / columns;
    for (qsizetype i = 0; i < windows.size(); ++i) {
        const auto row = i / columns, column = i % columns;
        const auto across = std::min(columns, windows.size() - row * columns);
        const auto edge = [](int from, int length, qsizetype index, qsizetype count) {
            return from + static_cast<int>(length * index / count);
        };
        const QPoint corner(edge(part.left(), part.width(), column, across),
                            edge(part.top(), part.height(), row, rows));
        const QPoint next(edge(part.left(), part.width(), column + 1, across),
                          edge(part.top(), part.height(), row + 1, rows));
        windows[i]->showNormal();
        windows[i]->setGeometry({corner, next - QPoint(1, 1)});
    }
}

} // namespace

WindowCare::WindowCare(QMdiArea& area, Looks& looks, QObject* parent) : QObject(parent), area(area), looks(looks)
{
    area.setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
}

void WindowCare::Add(ChildWindow* window, const FirstPlace& place)
{
    const auto kept = looks.Kept(PlaceKey(window)).toRect();
    window->SetFirstPlace(kept.isValid() ? [kept](const QRect&) { return kept; } : place);
    area.addSubWindow(window);
    area.viewport()->installEventFilter(window);
    window->hide();
    windows += window;
    connect(window, &ChildWindow::CameOrWent, this, [this, window] { CameOrWent(window); });
}

void WindowCare::AddMap(ChildWindow* window)
{
    Add(map = window, Share());
}

FirstPlace WindowCare::Share() const
{
    return [this](const QRect& whole) { return MapPlace(whole); };
}

ChildWindow* WindowCare::WindowOf(const Form& form) const
{
    const auto found = std::ranges::find(windows, Shown(form.Name()), &ChildWindow::objectName);
    return found == windows.end() ? nullptr : *found;
}

QList<ChildWindow*> WindowCare::OpenBeside() const
{
    QList<ChildWindow*> open;
    for (auto* window : windows)
        if (window != map && IsOpen(window)) open += window;
    return open;
}

/// The whole area as long as the map is alone; then as large as its height lets a picture of 4 to 3 be.
QRect WindowCare::MapPlace(const QRect& whole) const
{
    if (OpenBeside().isEmpty()) return whole;
    return {0, 0, std::min(whole.width() * 68 / 100, whole.height() * 4 / 3), whole.height()};
}

/// A window that the operator opens is not to hide the map, and not to be hidden by it.
void WindowCare::CameOrWent(ChildWindow* window)
{
    if (map == nullptr) return;
    if (window != map && IsOpen(window) && OperatorActs::Running())
        for (auto* other : windows) {
            if (other == window || !IsOpen(other) || !other->isMaximized()) continue;
            other->showNormal();
            if (other == map) map->SetFirstPlace(Share());
        }
    map->FollowArea();
}

void WindowCare::Tile()
{
    const auto whole = area.viewport()->rect();
    const auto others = OpenBeside();
    auto rest = whole;
    if (map != nullptr && IsOpen(map)) {
        if (!others.isEmpty()) rest.setLeft(whole.width() * 60 / 100);
        map->showNormal();
        map->setGeometry(others.isEmpty() ? whole : whole.adjusted(0, 0, rest.left() - whole.width(), 0));
    }
    if (others.isEmpty()) return;
    const int least = area.fontMetrics().averageCharWidth() * 30; // narrower shows no row
    const auto wish = static_cast<qsizetype>(std::ceil(others.size() / 4.0));
    Spread(others, rest, std::clamp<qsizetype>(rest.width() / least, 1, wish));
}

void WindowCare::BringUp(const Form& form, MenuItem& item)
{
    if (!form.Visible()) FromScreen(item, [&] { item.Click(); });
    auto* window = WindowOf(form);
    if (window == nullptr || !form.Visible()) return;
    if (window->isMinimized()) window->showNormal();
    area.setActiveSubWindow(window);
}

void WindowCare::Press(const Form& form, MenuItem& item)
{
    const auto* window = WindowOf(form);
    if (!item.Enabled() || !item.Visible()) return;
    if (form.Visible() && IsOpen(window) && area.activeSubWindow() == window)
        FromScreen(item, [&] { item.Click(); });
    else
        BringUp(form, item);
}

void WindowCare::ListOpenWindows(QMenu* menu) const
{
    for (auto* action : menu->actions())
        if (action->property("window").toBool()) delete action;
    for (auto* window : windows) {
        if (window->isHidden()) continue;
        auto* action = menu->addAction(window->windowTitle());
        action->setProperty("window", true);
        action->setCheckable(true);
        action->setChecked(area.activeSubWindow() == window);
        connect(action, &QAction::triggered, window, [this, window] {
            if (window->isMinimized()) window->showNormal();
            area.setActiveSubWindow(window);
        });
    }
}

void WindowCare::KeepPlaces()
{
    for (const auto* window : windows)
        if (const auto place = window->OperatorsPlace(); place.isValid()) looks.Keep(PlaceKey(window), place);
}

} // namespace halvern
