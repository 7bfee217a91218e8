// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QTableView>

#include "forms/SortedRows.h"

namespace halvern {

/// A table in a fixed-width font, one line a row: the look that all lists share.
class PlainTable : public QTableView {
    Q_OBJECT
public:
    /// A table without a frame of cells, row by row selected.
    explicit PlainTable(QWidget* parent);
    /// An empty face and a size of 0 mean the desktop's fixed-width font.
    void UseFont(const Font& font);
    /// Rows that it would like to show without scrolling.
    void WantRows(int rows) { wanted = rows; }
    QSize sizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    /// Lets a click on the header sort: upwards, downwards, as it came. It begins by a column, or by none: -1.
    void SortByHeader(int column);
    /// Sizes rows and columns by the font.
    virtual void Fit();

private:
    int wanted = 8;
};

/// How a list is to be shown.
struct RowsLook {
    std::vector<RowColumn> columns; ///< none: the rows as they are, without a header
    bool markNews = false;
    bool followEnd = false;    ///< a reader who stands at the end stays at the end
    bool clickByEnter = false; ///< going along by keys selects nothing: a click does too much for that
    bool picker = false;       ///< rows to pick from: sorted, with a filter that stays; what is picked stays in sight
};

class FilterLine;

/// A list on the screen. The reader's place and the selected row stay where they are, whatever comes in.
///
/// A click on the header sorts: upwards, downwards, and again in the order of arrival. "/" filters. Typing goes to the
/// row whose call begins so; where several rows can be picked it picks none, Space does.
class RowsView final : public PlainTable {
    Q_OBJECT
public:
    RowsView(List& list, const RowsLook& look, QWidget* parent);
    StoreModel& Rows() const { return *storeModel; }
    /// The row of the store that stands at an index of the view; -1 for none.
    int StoreRow(const QModelIndex& shown) const { return sorted->StoreRow(shown); }
    /// Puts rows on the clipboard: the selected ones, or all that are shown.
    void Copy(bool all);
    bool Picker() const { return picker; }
    /// As long as none is, the first row stands there as selected. The list hears of it when it is taken.
    void OfferFirst();
    void TakeOffered();
    /// Shows the line that filters, above the list.
    FilterLine* ShowFilter();
    /// The same, and the keys go there.
    void AskForFilter();
    void keyboardSearch(const QString& search) override;
    /// Puts pictures before the rows, as large as a row is high.
    void ShowPictures(StoreModel::NameOfPicture name, StoreModel::Picture picture);
    /// Reads the texts that the columns have from elsewhere anew so often, while it can be seen.
    void RefreshEvery(int milliseconds);
    /// Puts more into the menu of a row, above what all rows have. Enter then does what a double click does.
    std::function<void(QMenu& menu, const std::string& row)> Offers;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void selectionChanged(const QItemSelection& now, const QItemSelection& before) override;
    void currentChanged(const QModelIndex& now, const QModelIndex& before) override;
    void Fit() override;

private:
    void KeepPlace();
    void RestorePlace();
    void FitTail();
    void ShowSelection();
    void ClickRow(int row);
    void PassMarksOn();
    QModelIndex Offered() const;
    void FollowOrNot();
    void Anchor();
    bool ManyRows() const { return list.style == ListStyle::MultiRows; }

    List& list;
    StoreModel* storeModel;
    SortedRows* sorted;
    FilterLine* filter = nullptr;
    const bool followEnd, clickByEnter, picker;
    int searchColumn = 0;
    QString typed; ///< what is looked for
    QElapsedTimer sinceTyped;
    QTimer refresh, anchor;
    bool offersFirst = false;
    bool writing = false; ///< what happens to the selection is not the operator's doing
    QPersistentModelIndex topRow;
    int topValue = 0;
    bool following = false; ///< the end; only the operator's own scrolling changes that
};

/// A grid of texts on the screen.
class GridView final : public PlainTable {
    Q_OBJECT
public:
    GridView(Grid& grid, QWidget* parent);

protected:
    void Fit() override;
};

} // namespace halvern
