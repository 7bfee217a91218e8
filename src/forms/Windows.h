// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <memory>

#include "forms/FormWindow.h"
#include "forms/HelpWindow.h"
#include "forms/Looks.h"
#include "forms/MainWindow.h"
#include "forms/MapView.h"
#include "map/Places.h"
#include "platform/qt/screen/QtDialogs.h"

namespace halvern {

/// All windows of a station. Needs a QApplication; the station outlives it.
class Windows {
public:
    /// @param looksFile  where `Looks` are kept
    explicit Windows(Halvern& halvern, const std::string& looksFile = {});
    ~Windows();

    /// The main window, and the map inside it.
    MainWindow& Main() const { return *main; }
    MapView& Map() const { return *map; }
    /// The window of a form; every form has one.
    QWidget* WindowOf(const Form& form) const;
    /// Lends the dialogs what they need: the windows of modal forms, pictures to print, a place to read.
    void Serve(QtDialogs& dialogs);
    /// Saves a picture of a form's window as PNG. @return what went wrong, or an empty text.
    std::string SavePicture(const Form& form, const std::string& file) const;

private:
    void AddChildren();
    void AddDialogs();
    void AddChild(Form& form, QWidget* content, const MenuItem& item, const FirstPlace& place);

    Halvern& halvern;
    Looks looks;
    PlaceNames places;
    std::unique_ptr<MainWindow> main;
    MapView* map = nullptr;
    HelpWindow* help = nullptr;
    std::map<const Form*, QWidget*> windows;
};

} // namespace halvern
