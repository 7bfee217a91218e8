// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMdiArea>
#include <QMenu>

#include "forms/FormWindow.h"
#include "forms/Looks.h"

namespace halvern {

/// How the windows inside the main window share its area: the map fills what the others leave, and each is found again
/// where the operator left it.
class WindowCare final : public QObject {
public:
    WindowCare(QMdiArea& area, Looks& looks, QObject* parent);

    /// @param place  where it stands when nobody has placed it yet
    void Add(ChildWindow* window, const FirstPlace& place);
    /// The one that fills the rest.
    void AddMap(ChildWindow* window);
    /// The map at the left on 60 of 100 parts, the others beside and below each other at the right, in the order of the
    /// View menu, all within the area.
    void Tile();
    /// A window in front is put away, any other one is lifted to the front. @param item  its own, which toggles it
    void Press(const Form& form, MenuItem& item);
    /// Shows a window above the others.
    void BringUp(const Form& form, MenuItem& item);
    /// The windows that are open, behind what else the menu has.
    void ListOpenWindows(QMenu* menu) const;
    /// Keeps where the windows stand for the next start.
    void KeepPlaces();

private:
    ChildWindow* WindowOf(const Form& form) const;
    QList<ChildWindow*> OpenBeside() const;
    QRect MapPlace(const QRect& area) const;
    FirstPlace Share() const;
    void CameOrWent(ChildWindow* window);

    QMdiArea& area;
    Looks& looks;
    QList<ChildWindow*> windows;
    ChildWindow* map = nullptr;
};

} // namespace halvern
