// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtWidgets>

#include "forms/RowsView.h"
#include "platform/Controls.h"
#include "platform/Lists.h"

/// One binding a kind of control. Each makes a widget that shows its control and passes on what the operator does, and
/// that bears the control's name as its object name. No binding knows a rule.
namespace halvern {

/// What every bound widget has: its name, what a screen reader says of it, its tool tip; enabled and visible as the
/// control is. `spoken` names it where the control has no label of its own.
void BindCommon(QWidget* widget, Control& control, const QString& spoken = {});

/// Each of these makes the widget that shows a control and carries the operator's acts to it.
QLabel* BindLabel(Label& label, QWidget* parent);
QGroupBox* BindFrame(Frame& frame, QWidget* parent);
QPushButton* BindButton(Button& button, QWidget* parent);
QLineEdit* BindField(TextField& field, QWidget* parent);
/// The same over several lines, to be read only.
QPlainTextEdit* BindText(TextField& field, QWidget* parent);
QComboBox* BindCombo(List& list, QWidget* parent);
QSpinBox* BindNumber(NumberLabel& number, QWidget* parent);
QSlider* BindGauge(Gauge& gauge, int least, int most, QWidget* parent);
/// A button an entry, `columns` beside each other, in a frame if there are words for it.
QWidget* BindChoice(Choice& choice, int columns, QWidget* parent);
/// The tabs are there already, one an entry.
void BindTabs(QTabWidget* tabs, Choice& choice);
/// For a menu that opens, `action` is its own.
/// @param ask  what must be agreed to before a click counts
void BindAction(QAction* action, MenuItem& item, const std::function<bool()>& ask = {});

/// The widget that goes with a control's kind.
QWidget* BindAny(Control& control, QWidget* parent);
/// The label that stands beside a bound widget, with its mnemonic; it is enabled and visible as the control is.
QLabel* LabelFor(QWidget* widget, Control& control);

} // namespace halvern
