// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/Layouts.h"
#include "forms/MapView.h"
#include "map/Places.h"
#include "state/Halvern.h"

/// The dialogs, one function each; and the windows inside the main window that have more than a list.
namespace halvern {

/// Dialogs that take more than a table of rows.
DialogWindow* MakeSetUpWindow(Halvern& halvern, QWidget* parent);
DialogWindow* MakeAddPathWindow(Halvern& halvern, QWidget* parent);
DialogWindow* MakeFontWindow(Halvern& halvern, QWidget* parent);
/// Of an object's place; a click on the map can fill it in.
DialogWindow* MakeObjectWindow(Halvern& halvern, ObjectFieldsForm& form, MapView& map, QWidget* parent);
/// What is known of a station: the form's lines, and its card beside them.
DialogWindow* MakeFindWindow(Halvern& halvern, PlaceNames& places, QWidget* parent);
DialogWindow* MakeInformationWindow(Halvern& halvern, PlaceNames& places, QWidget* parent);
DialogWindow* MakeGraphWindow(Halvern& halvern, QWidget* parent);
DialogWindow* MakeCompassWindow(Halvern& halvern, QWidget* parent);
DialogWindow* MakeHistoryWindow(Halvern& halvern, QWidget* parent);
DialogWindow* MakeNoticesWindow(Halvern& halvern, QWidget* parent);
/// For every form that has no layout of its own: its controls below each other, its buttons at the foot.
DialogWindow* MakePlainWindow(Halvern& halvern, Form& form, QWidget* parent);

/// A list as large as what it holds wants it.
RowsView* DialogRows(Halvern& halvern, List& list, QWidget* parent);
/// A list with its label above it.
void AddList(QVBoxLayout* layout, List& list, RowsView* view);

/// The two windows of the main area that are no plain store.
QWidget* MakeMessageWindow(Halvern& halvern);
QWidget* MakeWeatherWindow(Halvern& halvern);

} // namespace halvern
