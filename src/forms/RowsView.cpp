// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/RowsView.h"

#include <QtWidgets>

#include "forms/FilterLine.h"
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

void PlainTable::SortByHeader(int column)
{
    horizontalHeader()->setSortIndicatorClearable(true);
    horizontalHeader()->setSortIndicator(column, Qt::AscendingOrder);
    setSortingEnabled(true);
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
      sorted(new SortedRows(*storeModel, this)), followEnd(look.followEnd), clickByEnter(look.clickByEnter),
      picker(look.picker), following(look.followEnd)
{
    setModel(sorted);
    setSelectionMode(ManyRows() ? ExtendedSelection : SingleSelection);
    if (look.columns.empty()) horizontalHeader()->hide();
    SortByHeader(picker && look.columns.empty() ? 0 : -1);
    const auto isCall = [](const RowColumn& column) { return std::string_view(column.name) == "Call"; };
    const auto call = std::ranges::find_if(look.columns, isCall);
    if (call != look.columns.end()) searchColumn = static_cast<int>(call - look.columns.begin());
    if (picker) sorted->Stays = [&list](int row) { return list.Selected() == row || list.Marked(row); };
    connect(storeModel, &StoreModel::AboutToApply, this, &RowsView::KeepPlace);
    connect(storeModel, &StoreModel::Applied, this, &RowsView::RestorePlace);
    connect(storeModel, &StoreModel::LooksChanged, viewport(), QOverload<>::of(&QWidget::update));
    connect(verticalScrollBar(), &QScrollBar::actionTriggered, this, &RowsView::FollowOrNot);
    anchor.setSingleShot(true);
    connect(&anchor, &QTimer::timeout, this, &RowsView::Anchor);
    connect(this, &QTableView::clicked, this, [this](const QModelIndex& index) {
        if (!ManyRows()) ClickRow(StoreRow(index));
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
    setIconSize(QSize(1, 1) * verticalHeader()->defaultSectionSize());
    const int character = fontMetrics().horizontalAdvance('0');
    const int margin = 2 * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1);
    const auto& columns = storeModel->RowColumns();
    for (std::size_t i = 0; i + 1 < columns.size(); ++i) {
        const int name = fontMetrics().horizontalAdvance(QString::fromUtf8(columns[i].name)) + 2 * margin;
        const int picture = i == 0 && storeModel->HasPictures() ? iconSize().width() + margin : 0;
        setColumnWidth(static_cast<int>(i), std::max(columns[i].width * character + margin + picture, name));
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
    anchor.start(); // a scroll bar that came or went with the new size isn't reckoned with yet
}

void RowsView::Anchor()
{
    updateGeometries();
    if (following) verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

/// The operator scrolled.
void RowsView::FollowOrNot()
{
    const auto* bar = verticalScrollBar();
    following = followEnd && bar->sliderPosition() == bar->maximum();
}

/// In a sorted list the reader who stands at its head stays there; else he stays at his row.
void RowsView::KeepPlace()
{
    writing = true;
    topValue = verticalScrollBar()->value();
    topRow = topValue == 0 && sorted->sortColumn() >= 0 ? QModelIndex() : sorted->index(topValue, 0);
}

void RowsView::RestorePlace()
{
    updateGeometries();
    auto* bar = verticalScrollBar();
    bar->setValue(following ? bar->maximum() : topRow.isValid() ? topRow.row() : topValue);
    FitTail();
    writing = false;
    ShowSelection();
}

void RowsView::ShowSelection()
{
    const bool outer = std::exchange(writing, true);
    auto* selection = selectionModel();
    if (ManyRows()) {
        for (int row = 0; row < sorted->rowCount(); ++row) {
            const auto index = sorted->index(row, 0);
            const int stored = StoreRow(index);
            if (stored >= 0 && list.Marked(stored) != selection->isRowSelected(row))
                selection->select(index, QItemSelectionModel::Toggle | QItemSelectionModel::Rows);
        }
    } else if (const auto index = Offered(); index.row() != currentIndex().row() || !selection->hasSelection()) {
        const auto flags = QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
        selection->setCurrentIndex(index, index.isValid() ? flags : QItemSelectionModel::Clear);
    }
    writing = outer;
}

/// What stands selected: the row that is, or the first where that is offered.
QModelIndex RowsView::Offered() const
{
    return list.Selected() < 0 && offersFirst ? sorted->index(0, 0) : sorted->ShownRow(list.Selected());
}

void RowsView::OfferFirst()
{
    offersFirst = true;
    ShowSelection();
}

void RowsView::TakeOffered()
{
    if (list.Selected() < 0) ClickRow(StoreRow(Offered()));
}

void RowsView::ClickRow(int row)
{
    if (row < 0) return;
    FromScreen(
        list, writing, [&] { list.Click(row); }, [this] { ShowSelection(); });
}

void RowsView::PassMarksOn()
{
    FromScreen(
        list, writing,
        [this] {
            for (int row = 0; row < sorted->rowCount(); ++row) {
                const bool marked = selectionModel()->isRowSelected(row);
                const int stored = StoreRow(sorted->index(row, 0));
                if (stored >= 0 && list.Marked(stored) != marked) list.Mark(stored, marked);
            }
        },
        [] {});
}

QItemSelectionModel::SelectionFlags RowsView::selectionCommand(const QModelIndex& index, const QEvent* event) const
{
    const bool key = event != nullptr && event->type() == QEvent::KeyPress;
    if (ManyRows() && key && static_cast<const QKeyEvent*>(event)->key() == Qt::Key_Space)
        return QItemSelectionModel::Toggle | QItemSelectionModel::Rows;
    return PlainTable::selectionCommand(index, event);
}

/// A letter typed again and again goes on to the next call that begins with it.
void RowsView::keyboardSearch(const QString& search)
{
    const bool fresh = !sinceTyped.isValid() || sinceTyped.elapsed() > QApplication::keyboardInputInterval();
    sinceTyped.start();
    if (search.trimmed().isEmpty() || sorted->rowCount() == 0) return; // Space picks
    typed = fresh ? search : typed + search;
    const bool again = typed.count(search) == typed.size();
    const int from = std::max(0, currentIndex().row()) + (again && currentIndex().isValid() ? 1 : 0);
    const auto found = sorted->match(sorted->index(from % sorted->rowCount(), searchColumn), Qt::DisplayRole,
                                     again ? search : typed, 1, Qt::MatchStartsWith | Qt::MatchWrap);
    if (found.isEmpty()) return;
    const bool moveOnly = ManyRows() || clickByEnter;
    const auto flags = QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
    selectionModel()->setCurrentIndex(found.constFirst(), moveOnly ? QItemSelectionModel::NoUpdate : flags);
    scrollTo(found.constFirst());
}

FilterLine* RowsView::ShowFilter()
{
    if (filter == nullptr) {
        filter = new FilterLine(this, picker);
        connect(filter, &QLineEdit::textChanged, this, [this](const QString& text) {
            storeModel->Apply();
            const bool outer = std::exchange(writing, true);
            sorted->FilterBy(text);
            writing = outer;
            ShowSelection();
        });
    }
    filter->show();
    return filter;
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
    if (clickByEnter && enter && currentIndex().isValid()) return ClickRow(StoreRow(currentIndex()));
    if (Offers && enter && currentIndex().isValid()) return emit doubleClicked(currentIndex());
    if (event->text() == "/") return AskForFilter();
    if (event->key() == Qt::Key_Escape && sorted->Filtered() && !picker) return filter->Leave();
    PlainTable::keyPressEvent(event);
    if (event->key() == Qt::Key_Home && currentIndex().isValid())
        scrollTo(currentIndex()); // it may have been there before
    FollowOrNot();
}

void RowsView::focusInEvent(QFocusEvent* event)
{
    const bool outer = std::exchange(writing, true); // coming by picks no row
    PlainTable::focusInEvent(event);
    writing = outer;
}

void RowsView::AskForFilter()
{
    ShowFilter()->setFocus();
    filter->selectAll();
}

void RowsView::ShowPictures(StoreModel::NameOfPicture name, StoreModel::Picture picture)
{
    storeModel->ShowPictures(std::move(name), std::move(picture));
    Fit();
}

void RowsView::RefreshEvery(int milliseconds)
{
    connect(&refresh, &QTimer::timeout, storeModel, &StoreModel::TextsChanged);
    refresh.setInterval(milliseconds);
    if (isVisible()) refresh.start();
}

void RowsView::showEvent(QShowEvent* event)
{
    PlainTable::showEvent(event);
    if (refresh.interval() > 0) refresh.start();
}

void RowsView::hideEvent(QHideEvent* event)
{
    refresh.stop();
    PlainTable::hideEvent(event);
}

void RowsView::selectionChanged(const QItemSelection& now, const QItemSelection& before)
{
    PlainTable::selectionChanged(now, before);
    if (!writing && ManyRows()) PassMarksOn();
}

void RowsView::currentChanged(const QModelIndex& now, const QModelIndex& before)
{
    PlainTable::currentChanged(now, before);
    const bool byKey = !writing && !clickByEnter && QGuiApplication::mouseButtons() == Qt::NoButton;
    if (byKey && now.isValid() && !ManyRows()) ClickRow(StoreRow(now));
}

void RowsView::contextMenuEvent(QContextMenuEvent* event)
{
    storeModel->Apply();
    const int row = StoreRow(indexAt(event->pos()));
    const auto text = row >= 0 ? Shown(list.Row(row)) : QString();
    QMenu menu(this);
    if (Offers && row >= 0) Offers(menu, list.Row(row));
    auto* one = menu.addAction(tr("&Copy Row"), [text] { QGuiApplication::clipboard()->setText(text); });
    one->setEnabled(!text.isEmpty());
    auto* all = menu.addAction(tr("Copy &All Rows"), [this] { Copy(true); });
    all->setEnabled(list.Count() > 0);
    menu.addSeparator();
    menu.addAction(tr("&Filter...\t/"), this, &RowsView::AskForFilter);
    menu.exec(event->globalPos());
}

void RowsView::Copy(bool all)
{
    QStringList rows;
    for (int row = 0; row < sorted->rowCount(); ++row)
        if (all || selectionModel()->isRowSelected(row))
            rows += Shown(storeModel->RowText(sorted->mapToSource(sorted->index(row, 0)).row()));
    if (!rows.isEmpty()) QGuiApplication::clipboard()->setText(rows.join('\n'));
}

// --- grids -----------------------------------------------------------------------------------------------------------

GridView::GridView(Grid& grid, QWidget* parent) : PlainTable(parent)
{
    setModel(new SortedCells(new GridModel(grid, this), this));
    SortByHeader(-1);
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
