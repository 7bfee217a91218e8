// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include <QtTest/QTest>
#include <QtWidgets>

#include "forms/Watching.h"
#include "forms/Windows.h"
#include "support/StationTest.h"

namespace halvern::test {

/// A station with its windows, off the screen.
class Screen {
public:
    /// @param dialogs  the real ones, where boxes are to come up
    explicit Screen(QtDialogs* dialogs = nullptr) : station(DataFolder(), dialogs)
    {
        station.SetUp();
        windows = std::make_unique<Windows>(station.halvern);
        if (dialogs != nullptr) windows->Serve(*dialogs);
        station.halvern.ConMdiFrm.SetVisible(true);
        ShowNow();
    }

    /// The widget of a control, by its name.
    template <class Widget> Widget* Find(const char* name) const
    {
        for (auto* top : QApplication::topLevelWidgets())
            if (auto* found = top->findChild<Widget*>(name)) return found;
        return nullptr;
    }

    Station station;
    Halvern& halvern = station.halvern;
    std::unique_ptr<Windows> windows;
};

} // namespace halvern::test
