// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractItemView>
#include <QLineEdit>

namespace halvern {

/// Gives a line the button that empties it, with a name for a screen reader.
void OfferClear(QLineEdit* line);

/// A line above a list: the list shows only the rows that hold what is typed there. Down and Enter go on to the list,
/// Escape empties the line.
class FilterLine final : public QLineEdit {
    Q_OBJECT
public:
    /// Takes its place above the list, in the layout that the list stands in.
    /// @param stays  whether the line stays on the screen when Escape is pressed
    FilterLine(QAbstractItemView* list, bool stays);
    /// Lets all rows be shown again.
    void Leave();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void GoToList();
    QAbstractItemView* const list;
    const bool stays;
};

} // namespace halvern
