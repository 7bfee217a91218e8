// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFontMetricsF>
#include <QPixmap>
#include <QRegion>
#include <array>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "state/MapFrm.h"

class QPainter;

namespace halvern {

/// The pictures of symbol files, each loaded once; a file of twice the size beside it serves screens of double scale.
class SymbolPictures {
public:
    /// @param ratio device pixels a pixel.
    explicit SymbolPictures(qreal ratio) : ratio(ratio) {}
    qreal Ratio() const { return ratio; }
    /// The address is good as long as this lives. A file that can't be read gives an empty picture.
    const QPixmap& Of(const std::string& file);

private:
    QPixmap Load(const std::string& file) const;
    const qreal ratio;
    std::unordered_map<std::string, QPixmap> pictures;
};

/// Which parts of a view are taken by labels, in squares that are a little larger than a label.
class TakenRoom {
public:
    void Reset(QSize size);
    /// Takes the room if it is free.
    bool Take(const QRect& box);

private:
    static constexpr int Wide = 128, High = 32;
    QRect SquaresOf(const QRect& box) const;
    std::vector<QRect>& At(int x, int y) { return squares[static_cast<std::size_t>(y) * across + x]; }
    int across = 1, down = 1;
    std::vector<std::vector<QRect>> squares;
};

/// Symbols and labels above the map, in pixels. It is told which stations changed, and says what to paint anew: a
/// station that moved costs its own few pixels.
///
/// Where labels meet, one is shown and the others wait until there is room for them: the own station's first, then
/// those of the latest stations. Symbols are all shown.
class SpriteLayer {
public:
    SpriteLayer(const MapForm& form, const std::vector<StationPlotRecord>& plot) : form(form), plot(plot) {}

    /// A station's picture or label changed.
    void Note(int index);
    void NoteAll() { allChanged = true; }
    bool Pending() const { return allChanged || !changed.empty(); }

    /// Takes over what was noted, the view's frame and its size. @return what is to be painted anew
    QRegion Settle(QSize viewSize, const QFont& font, qreal ratio);
    /// Paints what stands in a region; the painter is clipped to it.
    void Paint(QPainter& painter, const QRegion& region) const;
    /// Visits the box of every symbol, and of every label that is shown.
    template <class Visit> void ForBoxes(Visit visit) const
    {
        for (const auto& pair : pairs) {
            if (pair.picture != nullptr) visit(pair.pictureBox);
            if (pair.labelShown) visit(pair.labelBox);
        }
    }
    /// The uppermost station at a place, or -1.
    int At(QPoint place) const;
    /// All of them, the uppermost first; those whose label is meant come before those whose symbol lies below.
    std::vector<int> AllAt(QPoint place) const;
    /// Where a station's symbol stands in the view; empty where it is not shown.
    QRect BoxOf(int station) const;
    /// The stations whose symbols stand in the view, from its middle outwards; those too many are left out.
    const std::vector<int>& InView() const;
    static constexpr std::size_t MostInView = 300;

    /// Puts a ring around a station, or none for -1. @return what is to be painted anew
    QRegion Choose(int station);
    /// The station with the ring, as long as it is shown, or -1.
    int Chosen() const { return BoxOf(chosen).isEmpty() ? -1 : chosen; }

private:
    /// A station in pixels. A picture or a label that is not shown has an empty box.
    struct Pair {
        float lon = 0, lat = 0; ///< where it stands, view coordinates; its picture is centred above that
        short pictureWide = 0, pictureHigh = 0, labelWide = 0, labelHigh = 0;
        short labelAside = 0; ///< how far left of the place its label begins, whose top is level with that
        const QPixmap* picture = nullptr;
        QRect pictureBox, labelBox;
        bool labelShown = false; ///< there is room for it
    };

    void Measure(int index);
    void Project(Pair& pair) const;
    QRect Extent(int index) const;
    void PaintRing(QPainter& painter) const;
    void ShareRoom(QRegion* changedBoxes);
    short WidthOf(std::string_view caption) const;
    void UseFont(const QFont& next);
    void PaintLabel(QPainter& painter, const LabelSprite& label, const QRect& box) const;

    const MapForm& form;
    const std::vector<StationPlotRecord>& plot;
    std::unique_ptr<SymbolPictures> pictures;
    std::vector<Pair> pairs;
    TakenRoom room;
    std::vector<int> changed;
    bool allChanged = true;
    int chosen = -1;
    mutable std::optional<std::vector<int>> inView; ///< until something moves
    ViewFrame frame;
    QSize size{1, 1};
    QFont font;
    std::array<float, 256> advances{};
    float otherAdvance = 0;
    short labelHeight = 0;
};

} // namespace halvern
