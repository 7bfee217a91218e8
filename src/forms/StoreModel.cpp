// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/StoreModel.h"

#include <QApplication>
#include <QDateTime>
#include <QPalette>
#include <algorithm>

#include "forms/Glyphs.h"
#include "forms/Tints.h"
#include "forms/Watching.h"
#include "platform/Text.h"

namespace halvern {

std::string_view StretchOf(const RowColumn& column, std::string_view row)
{
    const auto width = column.width == 0 ? std::string_view::npos : static_cast<std::size_t>(column.width);
    return Columns(row, static_cast<std::size_t>(column.first), width);
}

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
        news.clear();
        held = -1;
        longestTail = 0;
        BeginAnew();
    }
    if (change.what == Change::RowAdded || change.what == Change::RowReplaced) Measure(change.row);
    if (change.what == Change::RowReplaced) NoteReplaced(change.row);
    if (change.what == Change::RowAdded) NoteAdded(change.row);
    if (change.what == Change::RowRemoved) NoteRemoved(change.row);
    pending = true;
    if (pace == Pace::AtOnce)
        Apply();
    else
        pacer->Ask();
}

void StoreModel::NoteReplaced(int row)
{
    DropHeld();
    AddNews(row);
    if (manyReplaced) return;
    replaced.push_back(row);
    if (replaced.size() > MostReplaced) {
        manyReplaced = true;
        replaced.clear();
    }
}

void StoreModel::NoteRemoved(int row)
{
    DropHeld();
    held = row;
}

/// A row taken out and put in again at its place is a row that changed.
void StoreModel::NoteAdded(int row)
{
    if (std::exchange(held, held == row ? -1 : held) == row) return NoteReplaced(row);
    DropHeld();
    Move(row, 1);
    AddNews(row);
    if (allChanged) return;
    const auto at = PieceFrom(row);
    if (at > 0 && pieces[at - 1].fresh)
        ++pieces[at - 1].count;
    else if (at < pieces.size() && pieces[at].fresh)
        ++pieces[at].count;
    else
        pieces.insert(pieces.begin() + static_cast<std::ptrdiff_t>(at), {0, 1, true});
    if (pieces.size() > MostPieces) BeginAnew();
}

void StoreModel::DropHeld()
{
    const int row = std::exchange(held, -1);
    if (row < 0) return;
    std::erase(replaced, row);
    std::erase_if(news, [row](const News& entry) { return entry.row == row; });
    Move(row, -1);
    if (allChanged) return;
    const auto at = PieceFrom(row);
    PieceFrom(row + 1);
    pieces.erase(pieces.begin() + static_cast<std::ptrdiff_t>(at));
}

/// Too much has happened to tell it one by one.
void StoreModel::BeginAnew()
{
    replaced.clear();
    moved = manyReplaced = false;
    allChanged = true;
}

/// What is noted of rows from this one on stands so many further down.
void StoreModel::Move(int row, int by)
{
    for (auto& entry : news)
        if (entry.row >= row) entry.row += by;
    for (auto& each : replaced)
        if (each >= row) each += by;
}

/// Cuts the pieces so that one begins at a row of the store. @return its place
std::size_t StoreModel::PieceFrom(int row)
{
    if (!std::exchange(moved, true)) pieces = {{0, announced, false}};
    std::size_t at = 0;
    for (; at < pieces.size() && row >= pieces[at].count; ++at) row -= pieces[at].count;
    if (row == 0 || at == pieces.size()) return at;
    const auto whole = pieces[at];
    pieces[at].count = row;
    const Piece rest{whole.fresh ? 0 : whole.first + row, whole.count - row, whole.fresh};
    pieces.insert(pieces.begin() + static_cast<std::ptrdiff_t>(at) + 1, rest);
    return at + 1;
}

int StoreModel::Now(int row) const
{
    int now = moved ? -1 : row, before = 0;
    for (const auto& piece : pieces) {
        if (!piece.fresh && row >= piece.first && row < piece.first + piece.count) now = before + row - piece.first;
        before += piece.count;
    }
    if (held >= 0 && now >= held) now = now == held ? -1 : now - 1;
    return now < list.Count() ? now : -1;
}

const std::string& StoreModel::RowText(int row) const
{
    static const std::string gone;
    const int now = Now(row);
    return now < 0 ? gone : list.Row(now);
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
    DropHeld();
    emit AboutToApply();
    if (allChanged) {
        AnnounceAll();
    } else {
        AnnounceRemoved();
        AnnounceAdded();
        moved = false;
        AnnounceReplaced();
    }
    emit Applied();
}

void StoreModel::AnnounceAll()
{
    beginResetModel();
    allChanged = false;
    announced = list.Count();
    endResetModel();
}

/// From the end on, so that what stands before keeps its number.
void StoreModel::AnnounceRemoved()
{
    if (!moved) return;
    int end = announced;
    for (auto at = pieces.size() + 1; at-- > 0;) {
        if (at > 0 && pieces[at - 1].fresh) continue;
        const int from = at == 0 ? 0 : pieces[at - 1].first + pieces[at - 1].count;
        if (from < end) {
            beginRemoveRows({}, from, end - 1);
            for (auto& piece : pieces)
                if (!piece.fresh && piece.first >= end) piece.first -= end - from;
            announced -= end - from;
            endRemoveRows();
        }
        end = at == 0 ? 0 : pieces[at - 1].first;
    }
}

void StoreModel::AnnounceAdded()
{
    if (!moved) return;
    int row = 0;
    for (auto& fresh : pieces) {
        if (fresh.fresh) {
            beginInsertRows({}, row, row + fresh.count - 1);
            for (auto& piece : pieces)
                if (!piece.fresh && piece.first >= row) piece.first += fresh.count;
            fresh = {row, fresh.count, false};
            announced += fresh.count;
            endInsertRows();
        }
        row += fresh.count;
    }
}

void StoreModel::AnnounceReplaced()
{
    auto rows = std::exchange(replaced, {});
    if (std::exchange(manyReplaced, false) && announced > 0)
        emit dataChanged(index(0, 0), index(announced - 1, columnCount() - 1));
    std::ranges::sort(rows);
    for (auto first = rows.begin(); first != rows.end();) {
        auto last = first;
        while (std::next(last) != rows.end() && *std::next(last) <= *last + 1) ++last;
        emit dataChanged(index(*first, 0), index(*last, columnCount() - 1));
        first = std::next(last);
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

bool StoreModel::IsNews(int announcedRow) const
{
    const int row = news.empty() ? -1 : Now(announcedRow);
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
        const auto& row = RowText(index.row());
        const auto& column = columns[static_cast<std::size_t>(index.column())];
        return column.text && !row.empty() ? column.text(row) : Shown(StretchOf(column, row));
    }
    if (role == Qt::DecorationRole && index.column() == 0 && pictureOf && Now(index.row()) >= 0)
        return PictureOf(RowText(index.row()));
    if (role == Qt::BackgroundRole) return GroundOf(index.row());
    if (role == Qt::ForegroundRole && columns[static_cast<std::size_t>(index.column())].quiet)
        return QBrush(QuietColour(QApplication::palette()));
    return {};
}

QVariant StoreModel::GroundOf(int row) const
{
    if (IsNews(row)) {
        auto tint = QApplication::palette().color(QPalette::Highlight);
        tint.setAlphaF(0.18F);
        return QBrush(tint);
    }
    const auto tint = tintOf ? tintOf(RowText(row)) : QColor();
    return tint.isValid() ? QVariant(QBrush(tint)) : QVariant();
}

QIcon StoreModel::PictureOf(std::string_view row) const
{
    constexpr int mostPictures = 1000;
    const auto name = pictureName(row);
    const QByteArray key(name.data(), static_cast<qsizetype>(name.size()));
    const auto known = pictures.constFind(key);
    if (known != pictures.constEnd()) return *known;
    if (pictures.size() >= mostPictures) pictures.clear();
    return *pictures.insert(key, pictureOf(name));
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
