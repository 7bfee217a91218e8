// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/SortedRows.h"

#include <algorithm>
#include <cmath>

#include "forms/Glyphs.h"

namespace halvern {

SortedRows::SortedRows(StoreModel& rows, QObject* parent) : QSortFilterProxyModel(parent), rows(rows)
{
    connect(&rows, &QAbstractItemModel::modelReset, this, &SortedRows::TakeAllKeys);
    connect(&rows, &QAbstractItemModel::rowsInserted, this, [this](const QModelIndex&, int first, int last) {
        if (keyColumn >= 0) keys.insert(keys.begin() + first, static_cast<std::size_t>(last - first + 1), {});
        TakeKeys(first, last);
    });
    connect(&rows, &QAbstractItemModel::rowsRemoved, this, [this](const QModelIndex&, int first, int last) {
        if (keyColumn >= 0) keys.erase(keys.begin() + first, keys.begin() + last + 1);
    });
    connect(&rows, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex& first, const QModelIndex& last) { TakeKeys(first.row(), last.row()); });
    setSourceModel(&rows); // last: the keys are there before the rows are put in their places
}

int SortedRows::StoreRow(const QModelIndex& shown) const
{
    return shown.isValid() ? rows.Now(mapToSource(shown).row()) : -1;
}

QModelIndex SortedRows::ShownRow(int storeRow) const
{
    return mapFromSource(rows.index(storeRow, 0));
}

void SortedRows::FilterBy(const QString& text)
{
    const auto next = text.split(' ', Qt::SkipEmptyParts);
    if (std::exchange(words, next) != next) invalidate(); // told as one change, however many rows come and go
}

void SortedRows::sort(int column, Qt::SortOrder order)
{
    keyColumn = column < rows.columnCount() ? column : -1;
    TakeAllKeys();
    QSortFilterProxyModel::sort(column, order);
}

SortedRows::Key SortedRows::KeyOf(int row) const
{
    const auto& column = rows.RowColumns()[static_cast<std::size_t>(keyColumn)];
    const auto& text = rows.RowText(row);
    if (column.order) return {column.order(text), {}};
    return {0, column.text ? column.text(text).toStdString() : std::string(StretchOf(column, text))};
}

void SortedRows::TakeKeys(int first, int last)
{
    if (keyColumn < 0) return;
    for (int row = first; row <= last; ++row) keys[static_cast<std::size_t>(row)] = KeyOf(row);
}

void SortedRows::TakeAllKeys()
{
    keys.assign(keyColumn < 0 ? 0 : static_cast<std::size_t>(rows.rowCount()), {});
    TakeKeys(0, static_cast<int>(keys.size()) - 1);
}

bool SortedRows::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    const auto& one = keys[static_cast<std::size_t>(left.row())];
    const auto& other = keys[static_cast<std::size_t>(right.row())];
    if (std::isinf(one.number) != std::isinf(other.number)) // unknown: at the end, whichever way
        return std::isinf(other.number) == (sortOrder() == Qt::AscendingOrder);
    return one.number != other.number ? one.number < other.number : one.text < other.text;
}

bool SortedRows::filterAcceptsRow(int row, const QModelIndex&) const
{
    if (words.isEmpty()) return true;
    const auto text = Shown(rows.RowText(row));
    return std::ranges::all_of(words, [&](const auto& word) { return text.contains(word, Qt::CaseInsensitive); }) ||
           (Stays && Stays(rows.Now(row)));
}

SortedCells::SortedCells(QAbstractItemModel* cells, QObject* parent) : QSortFilterProxyModel(parent)
{
    setDynamicSortFilter(false);
    setSourceModel(cells);
}

bool SortedCells::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    const auto one = left.data().toString(), other = right.data().toString();
    bool number = false, otherNumber = false;
    const double value = one.toDouble(&number), otherValue = other.toDouble(&otherNumber);
    return number && otherNumber ? value < otherValue : one < other;
}

} // namespace halvern
