// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include "forms/RowsView.h"
#include "state/Halvern.h"

/// The windows that show a store each: the store's own rows, live.
namespace halvern {

/// The columns of rows of `PosLst`.
extern const std::vector<RowColumn> PositionColumns;

/// Each makes the window of one store; it follows the store from then on.
QWidget* MakePositionWindow(Halvern& halvern);
QWidget* MakeStatusWindow(Halvern& halvern);
QWidget* MakeDigiWindow(Halvern& halvern);
QWidget* MakeHeardWindow(Halvern& halvern);
QWidget* MakeTerminalWindow(Halvern& halvern);
QWidget* MakeDxWindow(Halvern& halvern);
QWidget* MakeTelemetryWindow(Halvern& halvern);
QWidget* MakeGateWindow(Halvern& halvern);

/// A list of a window that the reader keeps open, bound and named.
RowsView* MakeRows(List& list, const RowsLook& look, QWidget* parent);

} // namespace halvern
