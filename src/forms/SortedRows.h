// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSortFilterProxyModel>

#include "forms/StoreModel.h"

namespace halvern {

/// The rows of a store in the order and the choice that the operator wants of a window. A row that comes or changes is
/// put in its place; the others stay in theirs.
class SortedRows final : public QSortFilterProxyModel {
    Q_OBJECT
public:
    SortedRows(StoreModel& rows, QObject* parent);

    /// The row of the store that is shown there; -1 for none.
    int StoreRow(const QModelIndex& shown) const;
    /// Where a row of the store is shown; invalid where it is not.
    QModelIndex ShownRow(int storeRow) const;
    /// Only rows that hold each of the words, in whatever case, or that `Stays` says of; none shows all.
    void FilterBy(const QString& words);
    bool Filtered() const { return !words.isEmpty(); }
    std::function<bool(int storeRow)> Stays;

    void sort(int column, Qt::SortOrder order) override;

protected:
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
    /// What a row is sorted by. It is kept as it was told last: in the middle of an announcement the store is ahead of
    /// it.
    struct Key {
        double number;
        std::string text;
    };
    Key KeyOf(int row) const;
    void TakeKeys(int first, int last);
    void TakeAllKeys();

    StoreModel& rows;
    QStringList words;
    int keyColumn = -1;
    std::vector<Key> keys; ///< by row, while they are sorted
};

/// The rows of a grid, sorted when the operator asks for it: cells that are numbers as numbers. Counts that change
/// later move no row from under his eyes.
class SortedCells final : public QSortFilterProxyModel {
public:
    SortedCells(QAbstractItemModel* cells, QObject* parent);

protected:
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;
};

} // namespace halvern
