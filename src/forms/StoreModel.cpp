// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/StoreModel.h"

#include <QApplication>
#include <QDateTime>
#include <QPalette>
#include <algorithm>

#include "forms/Glyphs.h"
#include "forms/Watching.h"
#include "platform/Text.h"

namespace halvern {

StoreModel::StoreModel(List& list, std::vector<RowColumn> rowColumns, Pace pace, bool markNews, QObject* parent)
    : QAbstractTableModel(parent), list(list),
      columns(rowColumns.empty() ? std::vector<RowColumn>{{}} : std::move(rowColumns)), pace(pace), markNews(markNews),
      announced(list.Count()), pacer(new Pacer(this, [this] { Apply(); }))
{
    for (int row = 0; row < announced; ++row) Measure(row);
    connect(&newsTimer, &QTimer::timeout, this, &StoreModel::DropOldNews);
    WatchFor(this, list, [this](const Change& change) { Note(change); });
}

// --- collecting ------------------------------------------------------------------------------------------------------

void StoreModel::Note(const Change& change)
{
    if (change.what == Change::Property) return;
    if (change.what == Change::RowsCleared) {
        steps.clear();
        news.clear();
        longestTail = 0;
        allChanged = true;
    }
    if (change.what == Change::RowAdded || change.what == Change::RowReplaced) Measure(change.row);
    if (change.what == Change::RowReplaced) NoteReplaced(change.row);
    if (change.what == Change::RowAdded) NoteMoved(true, change.row);
    if (change.what == Change::RowRemoved) NoteMoved(false, change.row);
    pending = true;
    if (pace == Pace::AtOnce)
        Apply();
    else
        pacer->Ask();
}

void StoreModel::NoteReplaced(int row)
{
    replacedFirst = replacedFirst < 0 ? row : std::min(replacedFirst, row);
    replacedLast = std::max(replacedLast, row);
    AddNews(row);
}

void StoreModel::NoteMoved(bool added, int row)
{
    // a row taken out and put in again at its place is a row that changed
    if (added && !steps.empty() && !steps.back().added && steps.back().first == row) {
        if (--steps.back().count == 0) steps.pop_back();
        return NoteReplaced(row);
    }
    for (auto& entry : news)
        if (entry.row >= row) entry.row += added ? 1 : -1;
    if (added) AddNews(row);
    if (allChanged) return;
    auto* last = steps.empty() ? nullptr : &steps.back();
    if (last != nullptr && last->added && added && row >= last->first && row <= last->first + last->count)
        ++last->count;
    else if (last != nullptr && !last->added && !added && row == last->first)
        ++last->count;
    else
        steps.push_back({added, row, 1});
    if (steps.size() > MostSteps) {
        steps.clear();
        allChanged = true;
    }
}

void StoreModel::Measure(int row)
{
    const auto length = static_cast<int>(list.Row(row).size()) - (columns.back().first - 1);
    longestTail = std::max(longestTail, length);
}

// --- announcing ------------------------------------------------------------------------------------------------------

void StoreModel::Apply()
{
    if (!pending) return;
    pending = false;
    emit AboutToApply();
    if (allChanged)
        AnnounceAll();
    else
        for (const auto& step : std::exchange(steps, {})) Announce(step);
    if (replacedFirst >= 0 && announced > 0)
        emit dataChanged(index(std::min(replacedFirst, announced - 1), 0),
                         index(std::min(replacedLast, announced - 1), columnCount() - 1));
    replacedFirst = replacedLast = -1;
    emit Applied();
}

void StoreModel::TextsChanged()
{
    if (announced > 0) emit dataChanged(index(0, 0), index(announced - 1, columnCount() - 1));
}

void StoreModel::AnnounceAll()
{
    beginResetModel();
    steps.clear();
    allChanged = false;
    announced = list.Count();
    endResetModel();
}

void StoreModel::Announce(const Step& step)
{
    if (step.added) {
        beginInsertRows({}, step.first, step.first + step.count - 1);
        announced += step.count;
        endInsertRows();
    } else {
        beginRemoveRows({}, step.first, step.first + step.count - 1);
        announced -= step.count;
        endRemoveRows();
    }
}

// --- news ------------------------------------------------------------------------------------------------------------

void StoreModel::AddNews(int row)
{
    if (!markNews) return;
    const auto until = QDateTime::currentMSecsSinceEpoch() + NewsMs;
    std::erase_if(news, [row](const News& entry) { return entry.row == row; });
    if (news.size() >= MostNews) news.erase(news.begin());
    news.push_back({row, until});
    if (!newsTimer.isActive()) newsTimer.start(1000);
}

void StoreModel::DropOldNews()
{
    const auto now = QDateTime::currentMSecsSinceEpoch();
    const auto old = std::erase_if(news, [now](const News& entry) { return entry.until < now; });
    if (old > 0) TextsChanged();
    if (news.empty()) newsTimer.stop();
}

bool StoreModel::IsNews(int row) const
{
    return std::any_of(news.begin(), news.end(), [row](const News& entry) { return entry.row == row; });
}

// --- what views ask --------------------------------------------------------------------------------------------------

int StoreModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : announced;
}

int StoreModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(columns.size());
}

QVariant StoreModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) return {};
    if (role == Qt::DisplayRole || role == Qt::EditRole) {
        if (index.row() >= list.Count()) return QString();
        const auto& column = columns[static_cast<std::size_t>(index.column())];
        const auto& row = list.Row(index.row());
        if (column.text) return column.text(row);
        const auto width = column.width == 0 ? std::string_view::npos : static_cast<std::size_t>(column.width);
        return Shown(Columns(row, static_cast<std::size_t>(column.first), width));
    }
    if (role == Qt::DecorationRole && index.column() == 0 && pictureOf && index.row() < list.Count())
        return PictureOf(list.Row(index.row()));
    if (role == Qt::BackgroundRole && IsNews(index.row())) {
        auto tint = QApplication::palette().color(QPalette::Highlight);
        tint.setAlphaF(0.18F);
        return QBrush(tint);
    }
    return {};
}

QIcon StoreModel::PictureOf(const std::string& row) const
{
    constexpr int mostPictures = 1000;
    const QByteArray key(row.data(), static_cast<qsizetype>(row.size()));
    const auto known = pictures.constFind(key);
    if (known != pictures.constEnd()) return *known;
    if (pictures.size() >= mostPictures) pictures.clear();
    return *pictures.insert(key, pictureOf(row));
}

QVariant StoreModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
    const auto& column = columns[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole) return QString::fromUtf8(column.name);
    if (role == Qt::ToolTipRole || role == Qt::AccessibleTextRole)
        return QString::fromUtf8(*column.tip != '\0' ? column.tip : column.name);
    if (role == Qt::TextAlignmentRole) return QVariant::fromValue(Qt::AlignLeft | Qt::AlignVCenter);
    return {};
}

// --- grids -----------------------------------------------------------------------------------------------------------

GridModel::GridModel(Grid& grid, QObject* parent)
    : QAbstractTableModel(parent), grid(grid), rows(grid.Rows() - 1), cols(grid.Cols())
{
    auto* pacer = new Pacer(this, [this] { Apply(); });
    WatchFor(this, grid, [pacer](const Change&) { pacer->Ask(); });
}

void GridModel::Apply()
{
    const int newRows = std::max(0, grid.Rows() - 1), newCols = grid.Cols();
    if (newRows < rows || newCols < cols) {
        beginResetModel();
        rows = newRows;
        cols = newCols;
        endResetModel();
        return;
    }
    if (newCols > cols) {
        beginInsertColumns({}, cols, newCols - 1);
        cols = newCols;
        endInsertColumns();
    }
    if (newRows > rows) {
        beginInsertRows({}, rows, newRows - 1);
        rows = newRows;
        endInsertRows();
    }
    if (rows > 0) emit dataChanged(index(0, 0), index(rows - 1, cols - 1));
    emit headerDataChanged(Qt::Horizontal, 0, cols - 1);
}

int GridModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : rows;
}

int GridModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : cols;
}

QString GridModel::Text(int row, int column) const
{
    if (row >= grid.Rows() || column >= grid.Cols()) return {};
    return Shown(grid.Cell(row, column));
}

QVariant GridModel::data(const QModelIndex& index, int role) const
{
    if (role == Qt::DisplayRole) return Text(index.row() + 1, index.column());
    if (role == Qt::TextAlignmentRole && index.column() > 0)
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole) return Text(0, section);
    if (orientation == Qt::Horizontal && role == Qt::TextAlignmentRole)
        return QVariant::fromValue((section == 0 ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    return {};
}

} // namespace halvern
