// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/SpriteLayer.h"

#include <QFileInfo>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <numeric>

#include "forms/Glyphs.h"
#include "platform/Files.h"
#include "platform/qt/Palette.h"

namespace halvern {
namespace {

constexpr int LabelMargin = 2;
/// More changes than this at once are painted as a whole.
constexpr std::size_t MostBoxes = 200;

/// Which parts of the view are taken by labels, in squares of a few dozen pixels.
class TakenRoom {
public:
    explicit TakenRoom(QSize size) : across(size.width() / Wide + 2), down(size.height() / High + 2)
    {
        squares.resize(static_cast<std::size_t>(across) * static_cast<std::size_t>(down));
    }
    /// Takes the room if it is free.
    bool Take(const QRect& box)
    {
        const QRect cells(QPoint(Bound(box.left() / Wide, across), Bound(box.top() / High, down)),
                          QPoint(Bound(box.right() / Wide, across), Bound(box.bottom() / High, down)));
        for (int y = cells.top(); y <= cells.bottom(); ++y)
            for (int x = cells.left(); x <= cells.right(); ++x)
                for (const auto& taken : At(x, y))
                    if (taken.intersects(box)) return false;
        for (int y = cells.top(); y <= cells.bottom(); ++y)
            for (int x = cells.left(); x <= cells.right(); ++x) At(x, y).push_back(box);
        return true;
    }

private:
    static constexpr int Wide = 64, High = 32;
    static int Bound(int cell, int count) { return std::clamp(cell, 0, count - 1); }
    std::vector<QRect>& At(int x, int y) { return squares[static_cast<std::size_t>(y) * across + x]; }
    int across, down;
    std::vector<std::vector<QRect>> squares;
};

} // namespace

// --- pictures --------------------------------------------------------------------------------------------------------

const QPixmap& SymbolPictures::Of(const std::string& file)
{
    const auto found = pictures.find(file);
    if (found != pictures.end()) return found->second;
    return pictures.emplace(file, Load(file)).first->second;
}

QPixmap SymbolPictures::Load(const std::string& file) const
{
    const DiskFiles files;
    const auto path = Shown(files.Resolved(file));
    if (ratio > 1) {
        const QFileInfo info(path);
        const auto twice = info.path() + "@2x/" + info.completeBaseName() + ".PNG";
        QPixmap pixmap(Shown(files.Resolved(Typed(twice))));
        if (!pixmap.isNull()) {
            pixmap.setDevicePixelRatio(2);
            return pixmap;
        }
    }
    return QPixmap(path);
}

// --- taking over -----------------------------------------------------------------------------------------------------

void SpriteLayer::Note(int index)
{
    if (allChanged) return;
    changed.push_back(index);
    if (changed.size() > static_cast<std::size_t>(form.SymPic.Count()) * 4 + MostBoxes) NoteAll();
}

void SpriteLayer::UseFont(const QFont& next)
{
    font = next;
    const QFontMetricsF metrics(font);
    for (int i = 0; i < 256; ++i) advances[i] = static_cast<float>(metrics.horizontalAdvance(QChar(i)));
    otherAdvance = static_cast<float>(metrics.maxWidth());
    labelHeight = static_cast<short>(std::ceil(metrics.ascent() + metrics.descent()));
    NoteAll();
}

short SpriteLayer::WidthOf(std::string_view caption) const
{
    float width = 2 * LabelMargin;
    for (const char c : caption) width += advances[static_cast<unsigned char>(c)];
    return static_cast<short>(std::ceil(width));
}

void SpriteLayer::Measure(int index)
{
    if (index >= static_cast<int>(pairs.size())) pairs.resize(index + 1);
    auto& pair = pairs[index];
    pair = {};
    if (!form.SymPic.Exists(index)) return;
    const auto& picture = form.SymPic(index);
    // it was laid out for the surface's size, which may not be the view's yet
    const double across = (frame.left - frame.right) / form.Map1.Width();
    const double down = (frame.top - frame.bottom) / form.Map1.Height();
    pair.lon = static_cast<float>(picture.left - picture.width * across / 2);
    pair.lat = static_cast<float>(picture.top - picture.height * down);
    pair.pictureX = -static_cast<float>(picture.width) / 2;
    pair.pictureY = -static_cast<float>(picture.height);
    if (picture.visible && !picture.file.empty()) {
        pair.pictureWide = static_cast<short>(picture.width);
        pair.pictureHigh = static_cast<short>(picture.height);
        pair.picture = &pictures->Of(picture.file);
    }
    if (form.SymLbl.Exists(index) && form.SymLbl(index).visible && !form.SymLbl(index).caption.empty()) {
        const auto& label = form.SymLbl(index);
        pair.labelX = static_cast<float>((pair.lon - label.left) / across);
        pair.labelY = static_cast<float>((pair.lat - label.top) / down);
        pair.labelWide = WidthOf(label.caption);
        pair.labelHigh = labelHeight;
    }
    Project(pair);
}

void SpriteLayer::Project(Pair& pair) const
{
    const double x = (frame.left - pair.lon) / (frame.left - frame.right) * size.width();
    const double y = (frame.top - pair.lat) / (frame.top - frame.bottom) * size.height();
    const auto corner = [](double place, float offset) {
        return static_cast<int>(std::lround(std::clamp(place + offset, -30000.0, 30000.0)));
    };
    pair.pictureBox = {corner(x, pair.pictureX), corner(y, pair.pictureY), pair.pictureWide, pair.pictureHigh};
    pair.labelBox = {corner(x, pair.labelX), corner(y, pair.labelY), pair.labelWide, pair.labelHigh};
}

/// Gives each label the room it needs, in the order of their rank, and notes the boxes that came or went.
void SpriteLayer::ShareRoom(QRegion* changedBoxes)
{
    const QRect view({}, size);
    TakenRoom room(size);
    const auto count = static_cast<int>(pairs.size());
    for (int rank = 0; rank < count; ++rank) {
        auto& pair = pairs[rank == 0 ? 0 : count - rank];
        const bool shown = pair.labelWide > 0 && pair.labelBox.intersects(view) && room.Take(pair.labelBox);
        if (shown != pair.labelShown && changedBoxes != nullptr) *changedBoxes += pair.labelBox;
        pair.labelShown = shown;
    }
}

QRegion SpriteLayer::Settle(QSize viewSize, const QFont& nextFont, qreal ratio)
{
    const bool newRatio = pictures == nullptr || pictures->Ratio() != ratio;
    if (newRatio) pictures = std::make_unique<SymbolPictures>(ratio);
    if (newRatio || nextFont != font) UseFont(nextFont);
    const auto& nextFrame = form.Map1.Frame();
    const bool moved = viewSize != size || nextFrame.left != frame.left || nextFrame.top != frame.top ||
                       nextFrame.right != frame.right || nextFrame.bottom != frame.bottom;
    if (!moved && !Pending()) return {};
    frame = nextFrame;
    size = viewSize;
    if (std::exchange(allChanged, false)) {
        pairs.clear();
        changed.resize(static_cast<std::size_t>(form.SymPic.Count()));
        std::iota(changed.begin(), changed.end(), 0);
    }
    std::sort(changed.begin(), changed.end());
    changed.erase(std::unique(changed.begin(), changed.end()), changed.end());
    const bool whole = moved || changed.size() > MostBoxes || pairs.empty();
    QRegion region;
    for (const int index : std::exchange(changed, {})) {
        if (!whole && index < static_cast<int>(pairs.size())) {
            region += pairs[index].pictureBox;
            if (pairs[index].labelShown) region += pairs[index].labelBox;
        }
        Measure(index);
        if (!whole) region += pairs[index].pictureBox;
    }
    if (moved)
        for (auto& pair : pairs) Project(pair);
    ShareRoom(whole ? nullptr : &region);
    return whole ? QRegion(QRect({}, size)) : region;
}

// --- painting --------------------------------------------------------------------------------------------------------

void SpriteLayer::Paint(QPainter& painter, const QRect& clip) const
{
    for (const auto& pair : pairs)
        if (pair.picture != nullptr && pair.pictureBox.intersects(clip))
            painter.drawPixmap(pair.pictureBox, *pair.picture);
    painter.setFont(font);
    for (std::size_t i = 0; i < pairs.size(); ++i)
        if (pairs[i].labelShown && pairs[i].labelBox.intersects(clip))
            PaintLabel(painter, form.SymLbl(static_cast<int>(i)), pairs[i].labelBox);
}

void SpriteLayer::PaintLabel(QPainter& painter, const LabelSprite& label, const QRect& box) const
{
    painter.fillRect(box, PaletteColour(label.ground));
    painter.setPen(PaletteColour(label.colour));
    if (label.border) painter.drawRect(box.adjusted(0, 0, -1, -1));
    painter.drawText(box.adjusted(LabelMargin, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     Shown(label.caption));
}

int SpriteLayer::At(QPoint place) const
{
    for (std::size_t i = pairs.size(); i-- > 0;)
        if (pairs[i].labelShown && pairs[i].labelBox.contains(place)) return static_cast<int>(i);
    for (std::size_t i = pairs.size(); i-- > 0;)
        if (pairs[i].picture != nullptr && pairs[i].pictureBox.contains(place)) return static_cast<int>(i);
    return -1;
}

} // namespace halvern
