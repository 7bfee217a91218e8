// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractTableModel>
#include <QHash>
#include <QIcon>
#include <QTimer>
#include <functional>
#include <string>
#include <vector>

#include "forms/Watching.h"
#include "platform/Lists.h"

namespace halvern {

/// A stretch of a row's columns under a name. `first` is 1-based; `width` 0: to the end. With `text` the column shows
/// what that says of the row instead. Rows are sorted by the stretch, or by the number that `order` makes of the row;
/// what has none, infinity, comes last.
struct RowColumn {
    int first = 1;
    int width = 0;
    const char* name = "";
    const char* tip = "";
    std::function<QString(std::string_view row)> text = {};
    std::function<double(std::string_view row)> order = {};
    bool quiet = false; ///< in a fainter colour
};

/// The columns of a row that a stretch takes.
std::string_view StretchOf(const RowColumn& column, std::string_view row);

/// The rows of a store as a model; never a copy.
///
/// Changes are collected and announced together, at the pacer's pace, so that a busy store keeps its windows answering.
/// Between two announcements, and in the middle of one, a row that was announced shows what the store holds of it now;
/// one that is gone is empty.
class StoreModel final : public QAbstractTableModel {
    Q_OBJECT
public:
    enum class Pace { Collected, AtOnce };
    /// @param markNews  rows that came or changed in the last seconds stand on a tinted ground
    StoreModel(List& list, std::vector<RowColumn> columns, Pace pace, bool markNews, QObject* parent);

    /// Announces what has been collected: first all rows that are gone, then all that came, then those that changed.
    void Apply();
    /// Where the store has the row that was announced as `row`; -1 where it is gone.
    int Now(int row) const;
    /// What the store has there; empty where it is gone.
    const std::string& RowText(int row) const;
    /// The columns that have their texts from elsewhere have others now. That moves no row.
    void TextsChanged() { emit LooksChanged(); }
    /// What stands before a row: a picture has a name, and each name is asked for once.
    using NameOfPicture = std::function<std::string(std::string_view row)>;
    using Picture = std::function<QIcon(std::string_view name)>;
    void ShowPictures(NameOfPicture name, Picture picture)
    {
        pictureName = std::move(name);
        pictureOf = std::move(picture);
    }
    bool HasPictures() const { return pictureOf != nullptr; }
    /// The ground that a row stands on; an invalid colour: the list's own. It must leave the text legible.
    using Tint = std::function<QColor(std::string_view row)>;
    void ShowTints(Tint tint) { tintOf = std::move(tint); }
    /// Characters of the longest part behind the last column's first character, as far as the store has been seen.
    int LongestTail() const { return longestTail; }
    const std::vector<RowColumn>& RowColumns() const { return columns; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

signals:
    void AboutToApply();
    void Applied();
    void LooksChanged();

private:
    /// Rows of the store in a row: those announced from `first` on, or fresh ones.
    struct Piece {
        int first, count;
        bool fresh;
    };
    struct News {
        int row;
        qint64 until;
    };
    static constexpr int NewsMs = 8000;
    static constexpr std::size_t MostPieces = 2000, MostNews = 256, MostReplaced = 512;

    void Note(const Change& change);
    void NoteAdded(int row);
    void NoteRemoved(int row);
    void NoteReplaced(int row);
    void DropHeld();
    void BeginAnew();
    void Move(int row, int by);
    std::size_t PieceFrom(int row);
    void AnnounceAll();
    void AnnounceRemoved();
    void AnnounceAdded();
    void AnnounceReplaced();
    void AddNews(int row);
    void DropOldNews();
    bool IsNews(int row) const;
    QIcon PictureOf(std::string_view row) const;
    QVariant GroundOf(int row) const;
    void Measure(int row);

    List& list;
    const std::vector<RowColumn> columns;
    const Pace pace;
    const bool markNews;
    int announced = 0;
    std::vector<Piece> pieces; ///< what the store is made of, once rows have moved
    int held = -1;             ///< a row that was taken out, perhaps only to be put in again
    std::vector<int> replaced; ///< rows of the store
    bool moved = false, manyReplaced = false, allChanged = false, pending = false;
    int longestTail = 0;
    std::vector<News> news;
    NameOfPicture pictureName;
    Picture pictureOf;
    Tint tintOf;
    mutable QHash<QByteArray, QIcon> pictures;
    Pacer* const pacer;
    QTimer newsTimer;
};

/// A grid as a model: its row 0 is the header.
class GridModel final : public QAbstractTableModel {
    Q_OBJECT
public:
    GridModel(Grid& grid, QObject* parent);
    void Apply();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QString Text(int row, int column) const;
    Grid& grid;
    int rows = 0, cols = 0;
};

} // namespace halvern
