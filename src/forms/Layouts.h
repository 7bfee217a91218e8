// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtWidgets>

#include "forms/Bind.h"
#include "forms/FormWindow.h"

/// How bound widgets are set beside and below each other.
namespace halvern {

/// A control below the others of a form layout, its label before it. @return the control's widget
QWidget* AddRow(QFormLayout* form, Control& control);
/// The same with more widgets behind it on the line.
void AddRow(QFormLayout* form, Control& control, QWidget* widget, const QList<QWidget*>& behind);
/// Widgets side by side; what is left of the line stays free behind them.
QWidget* Beside(const QList<QWidget*>& widgets, QWidget* parent);
/// At least as wide as so many digits.
template <class Widget> Widget* WideFor(int characters, Widget* widget)
{
    const int text = widget->fontMetrics().horizontalAdvance('0') * characters;
    widget->setMinimumWidth(text + widget->fontMetrics().height());
    return widget;
}
/// Exactly as wide as so many digits: for fields of a fixed length.
QWidget* FixedFor(int characters, QWidget* widget);

/// The four fields of a latitude or a longitude.
struct AngleFields {
    TextField &degrees, &minutes, &hundredths, &sign;
};
/// A line with the fields of an angle, its label before it.
void AddAngle(QFormLayout* form, const AngleFields& fields, QWidget* behind, QWidget* parent);

/// A row of buttons at the foot of a dialog: the first is the one that Enter presses. The last that closes without
/// doing anything is the one that Escape presses.
QWidget* ButtonRow(DialogWindow* window, const QList<Button*>& buttons);

/// After a press of a button that the rules refused, the keys go to the field at fault, on whatever tab it is.
/// @param fault  the field that is wrong now, or nullptr
void FocusFault(const DialogWindow* window, const Button& button, const std::function<const Control*()>& fault);

/// A line of warning that stands while something holds about the texts of some fields.
QLabel* Warning(const QString& text, const QList<TextField*>& fields, const std::function<bool()>& holds,
                QWidget* parent);

/// Gives each symbol of a list its picture.
void ShowSymbols(QComboBox* combo, const std::string& programFolder);
void ShowSymbols(RowsView* view, const std::string& programFolder);
/// A form that is never less than what it needs: where its window is smaller it scrolls.
QWidget* Scrolled(QWidget* form);

/// Gives each station of a list of `PosLst` rows the picture of its symbol, in the first column.
void ShowStationSymbols(RowsView* view, const std::string& programFolder);

} // namespace halvern
