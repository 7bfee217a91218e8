// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "forms/RowsView.h"
#include "state/Halvern.h"

/// What the windows offer for a station that a row is about.
namespace halvern {

/// The call in a row, without blanks behind it; empty where there is none.
using CallOfRow = std::function<std::string(std::string_view row)>;
/// Columns 1 to 9.
std::string CallInFront(std::string_view row);
/// What stands before ">".
std::string SourceOf(std::string_view row);

/// What can be done about a call. `from` is a widget of the main window.
using StationAct = void (*)(Halvern& halvern, const QWidget* from, const std::string& call);
/// Centres the map on a station that was heard, and brings it to the front.
void ShowOnMap(Halvern& halvern, const QWidget* from, const std::string& call);
/// Brings the Messages window up with a call to write to, and the keys in the message.
void WriteTo(Halvern& halvern, const QWidget* from, const std::string& call);

/// The rows' menu shows a station on the map, writes to it and tells of it.
/// @param act  what Enter and a double click do
void ServeStations(RowsView* view, Halvern& halvern, const CallOfRow& callOf, StationAct act = ShowOnMap);

} // namespace halvern
