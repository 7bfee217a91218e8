// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QMainWindow>
#include <QMdiArea>
#include <QToolButton>

#include "forms/Looks.h"
#include "forms/WindowCare.h"
#include "state/Halvern.h"

namespace halvern {

/// The main window: menus, toolbars, status bar, and the area for the windows inside it.
class MainWindow final : public QMainWindow {
    Q_OBJECT
public:
    MainWindow(Halvern& halvern, Looks& looks);
    WindowCare& Care() const { return *care; }
    /// The pop-up menu of a station on the map.
    QMenu& StationMenu() const { return *stationMenu; }
    /// The locator, the distance and the bearing of a place under the pointer, at the right of the status bar; nothing
    /// where the pointer is on none.
    void TellPlace(const QString& words);

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void MakeMenus();
    void MakeViewMenu(QMenu* menu);
    void MakeZoomActions(QMenu* menu);
    void MakeWindowMenu(QMenu* menu);
    void MakeStationMenu();
    void MakeToolbars();
    void MakeStatusBar();
    QWidget* MakeLamps();
    void MakeEscape();
    void KeepLooks();
    QWidget* MakeNoticesMark();
    void Follow();
    void UseIcons();
    QAction* ActionFor(MenuItem& item);

    Halvern& halvern;
    Looks& looks;
    QMdiArea* area;
    WindowCare* care;
    QMenu* stationMenu = nullptr;
    QToolButton* notices = nullptr;
    QLabel* place = nullptr;
    QList<QAction*> pictured; ///< actions that bear an icon; its name is the action's data
};

} // namespace halvern
