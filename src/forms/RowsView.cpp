// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/RowsView.h"

#include <QtWidgets>

#include "forms/Glyphs.h"
#include "forms/Watching.h"

namespace halvern {

// --- what all tables share -------------------------------------------------------------------------------------------

PlainTable::PlainTable(QWidget* parent) : QTableView(parent)
{
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setCornerButtonEnabled(false);
    setTextElideMode(Qt::ElideNone);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    horizontalHeader()->setMinimumSectionSize(4);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void PlainTable::UseFont(const Font& font)
{
    QFont next = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    if (!font.face.empty()) next.setFamily(Shown(font.face));
    if (font.size > 0) next.setPointSizeF(font.size);
    setFont(next);
    Fit();
}

QSize PlainTable::sizeHint() const
{
    const int header = horizontalHeader()->isHidden() ? 0 : horizontalHeader()->sizeHint().height();
    return {fontMetrics().averageCharWidth() * 40,
            header + verticalHeader()->defaultSectionSize() * wanted + 2 * frameWidth()};
}

void PlainTable::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::StyleChange && model() != nullptr) Fit();
}

void PlainTable::Fit()
{
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() +
                                            style()->pixelMetric(QStyle::PM_FocusFrameVMargin));
}

// --- rows ------------------------------------------------------------------------------------------------------------

RowsView::RowsView(List& list, const RowsLook& look, QWidget* parent)
    : PlainTable(parent), list(list),
      storeModel(new StoreModel(list, look.columns, StoreModel::Pace::Collected, look.markNews, this)),
      followEnd(look.followEnd), clickByEnter(look.clickByEnter)
{
    setModel(storeModel);
    setSelectionMode(list.style == ListStyle::MultiRows ? MultiSelection : SingleSelection);
    if (look.columns.empty()) horizontalHeader()->hide();
    connect(storeModel, &StoreModel::AboutToApply, this, &RowsView::KeepPlace);
    connect(storeModel, &StoreModel::Applied, this, &RowsView::RestorePlace);
    connect(this, &QTableView::clicked, this, [this](const QModelIndex& index) {
        if (this->list.style != ListStyle::MultiRows) ClickRow(index.row());
    });
    UseFont(list.Font());
    WatchFor(this, list, [this](const Change& change) {
        if (change.what == Change::Property) UseFont(this->list.Font());
    });
    ShowSelection();
}

void RowsView::Fit()
{
    PlainTable::Fit();
    const int character = fontMetrics().horizontalAdvance('0');
    const int margin = 2 * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1);
    const auto& columns = storeModel->RowColumns();
    for (std::size_t i = 0; i + 1 < columns.size(); ++i) {
        const int name = fontMetrics().horizontalAdvance(QString::fromUtf8(columns[i].name)) + 2 * margin;
        setColumnWidth(static_cast<int>(i), std::max(columns[i].width * character + margin, name));
    }
    FitTail();
}

void RowsView::FitTail()
{
    const int last = storeModel->columnCount() - 1;
    int before = 0;
    for (int i = 0; i < last; ++i) before += columnWidth(i);
    const int text = (storeModel->LongestTail() + 1) * fontMetrics().horizontalAdvance('0');
    const int width = std::max(viewport()->width() - before, text);
    if (columnWidth(last) != width) setColumnWidth(last, width);
}

void RowsView::resizeEvent(QResizeEvent* event)
{
    PlainTable::resizeEvent(event);
    FitTail();
}

void RowsView::KeepPlace()
{
    writing = true;
    const auto* bar = verticalScrollBar();
    topValue = bar->value();
    atEnd = followEnd && topValue == bar->maximum();
    topRow = storeModel->index(topValue, 0);
}

void RowsView::RestorePlace()
{
    updateGeometries();
    auto* bar = verticalScrollBar();
    bar->setValue(atEnd ? bar->maximum() : topRow.isValid() ? topRow.row() : topValue);
    FitTail();
    writing = false;
    ShowSelection();
}

void RowsView::ShowSelection()
{
    const bool outer = std::exchange(writing, true);
    auto* selection = selectionModel();
    if (list.style == ListStyle::MultiRows) {
        for (int row = 0; row < storeModel->rowCount() && row < list.Count(); ++row)
            if (list.Marked(row) != selection->isRowSelected(row))
                selection->select(storeModel->index(row, 0), QItemSelectionModel::Toggle | QItemSelectionModel::Rows);
    } else if (list.Selected() != currentIndex().row() || !selection->hasSelection()) {
        const auto index = storeModel->index(list.Selected(), 0);
        const auto flags = QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
        selection->setCurrentIndex(index, index.isValid() ? flags : QItemSelectionModel::Clear);
    }
    writing = outer;
}

void RowsView::ClickRow(int row)
{
    if (row >= list.Count()) return;
    FromScreen(
        list, writing, [&] { list.Click(row); }, [this] { ShowSelection(); });
}

void RowsView::PassMarksOn()
{
    FromScreen(
        list, writing,
        [this] {
            for (int row = 0; row < std::min(storeModel->rowCount(), list.Count()); ++row) {
                const bool marked = selectionModel()->isRowSelected(row);
                if (list.Marked(row) != marked) list.Mark(row, marked);
            }
        },
        [] {});
}

void RowsView::mousePressEvent(QMouseEvent* event)
{
    storeModel->Apply();
    PlainTable::mousePressEvent(event);
}

void RowsView::keyPressEvent(QKeyEvent* event)
{
    storeModel->Apply();
    if (event->matches(QKeySequence::Copy)) return Copy(false);
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (clickByEnter && enter && currentIndex().isValid()) return ClickRow(currentIndex().row());
    PlainTable::keyPressEvent(event);
}

void RowsView::focusInEvent(QFocusEvent* event)
{
    const bool outer = std::exchange(writing, true); // coming by picks no row
    PlainTable::focusInEvent(event);
    writing = outer;
}

void RowsView::selectionChanged(const QItemSelection& now, const QItemSelection& before)
{
    PlainTable::selectionChanged(now, before);
    if (!writing && list.style == ListStyle::MultiRows) PassMarksOn();
}

void RowsView::currentChanged(const QModelIndex& now, const QModelIndex& before)
{
    PlainTable::currentChanged(now, before);
    const bool byKey = !writing && !clickByEnter && QGuiApplication::mouseButtons() == Qt::NoButton;
    if (byKey && now.isValid() && list.style != ListStyle::MultiRows) ClickRow(now.row());
}

void RowsView::contextMenuEvent(QContextMenuEvent* event)
{
    storeModel->Apply();
    const int row = rowAt(event->pos().y());
    const auto text = row >= 0 && row < list.Count() ? Shown(list.Row(row)) : QString();
    QMenu menu(this);
    auto* one = menu.addAction(tr("&Copy Row"), [text] { QGuiApplication::clipboard()->setText(text); });
    one->setEnabled(!text.isEmpty());
    auto* all = menu.addAction(tr("Copy &All Rows"), [this] { Copy(true); });
    all->setEnabled(list.Count() > 0);
    menu.exec(event->globalPos());
}

void RowsView::Copy(bool all)
{
    QStringList rows;
    for (int row = 0; row < std::min(storeModel->rowCount(), list.Count()); ++row)
        if (all || selectionModel()->isRowSelected(row)) rows += Shown(list.Row(row));
    if (!rows.isEmpty()) QGuiApplication::clipboard()->setText(rows.join('\n'));
}

// --- grids -----------------------------------------------------------------------------------------------------------

GridView::GridView(Grid& grid, QWidget* parent) : PlainTable(parent)
{
    setModel(new GridModel(grid, this));
    connect(model(), &QAbstractItemModel::columnsInserted, this, &GridView::Fit);
    connect(model(), &QAbstractItemModel::modelReset, this, &GridView::Fit);
    UseFont(grid.Font());
    WatchFor(this, grid, [this, &grid, used = grid.Font()](const Change& change) mutable {
        if (change.what != Change::Property || grid.Font() == used) return; // a grid that grows tells so too
        used = grid.Font();
        UseFont(used);
    });
}

void GridView::Fit()
{
    PlainTable::Fit();
    const int character = fontMetrics().horizontalAdvance('0');
    for (int column = 0; column < model()->columnCount(); ++column) setColumnWidth(column, character * 11);
}

} // namespace halvern
