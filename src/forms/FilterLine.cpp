// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/FilterLine.h"

#include <QKeyEvent>
#include <QToolButton>
#include <QVBoxLayout>

namespace halvern {

void OfferClear(QLineEdit* line)
{
    line->setClearButtonEnabled(true);
    line->findChild<QToolButton*>()->setAccessibleName(QObject::tr("Clear"));
}

FilterLine::FilterLine(QAbstractItemView* list, bool stays) : list(list), stays(stays)
{
    setPlaceholderText(tr("Filter"));
    setToolTip(tr("Only rows that hold these words ( / )"));
    setAccessibleName(tr("Filter of %1").arg(list->accessibleName()));
    OfferClear(this);
    auto* box = new QWidget(list->parentWidget());
    delete list->parentWidget()->layout()->replaceWidget(list, box);
    auto* layout = new QVBoxLayout(box);
    layout->setContentsMargins({});
    layout->setSpacing(layout->spacing() / 2);
    auto* before = list->previousInFocusChain();
    layout->addWidget(this);
    layout->addWidget(list);
    setTabOrder(before, this);
    setTabOrder(this, list);
}

void FilterLine::keyPressEvent(QKeyEvent* event)
{
    const auto key = event->key();
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter, empty = text().isEmpty();
    if (key == Qt::Key_Down || (enter && !empty)) return GoToList();
    if (key != Qt::Key_Escape || (stays && empty)) return QLineEdit::keyPressEvent(event);
    Leave();
}

void FilterLine::Leave()
{
    clear();
    if (stays) return;
    hide();
    list->setFocus();
}

/// Its first row becomes the current one unless it has one.
void FilterLine::GoToList()
{
    list->setFocus();
    if (!list->currentIndex().isValid() && list->model()->rowCount() > 0)
        list->selectionModel()->setCurrentIndex(list->model()->index(0, 0), QItemSelectionModel::NoUpdate);
}

} // namespace halvern
