// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/SpriteLayer.h"

#include <QFileInfo>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <numeric>

#include "forms/Glyphs.h"
#include "platform/Files.h"
#include "platform/qt/screen/Palette.h"
#include "platform/qt/screen/Pictures.h"

namespace halvern {
namespace {

constexpr int LabelMargin = 2;
constexpr int RingMargin = 4, RingWidth = 2, RingRoom = RingMargin + RingWidth;
/// More changes than this at once are painted as a whole.
constexpr std::size_t MostBoxes = 200;

/// The squares of a view that a region touches: a quick answer for most sprites.
class TouchedSquares {
public:
    TouchedSquares(QSize size, const QRegion& region) : across(size.width() / Side + 1), down(size.height() / Side + 1)
    {
        touched.resize(static_cast<std::size_t>(across) * down);
        for (const auto& rect : region) ForSquares(rect, [this](std::size_t square) { touched[square] = 1; });
    }
    bool MayHold(const QRect& box) const
    {
        bool holds = false;
        ForSquares(box, [&](std::size_t square) { holds |= touched[square] != 0; });
        return holds;
    }

private:
    static constexpr int Side = 16;
    template <class Visit> void ForSquares(const QRect& box, Visit visit) const
    {
        const int right = std::min(box.right() / Side, across - 1), bottom = std::min(box.bottom() / Side, down - 1);
        for (int y = std::max(0, box.top() / Side); y <= bottom; ++y)
            for (int x = std::max(0, box.left() / Side); x <= right; ++x)
                visit(static_cast<std::size_t>(y) * across + x);
    }
    int across, down;
    std::vector<char> touched;
};

} // namespace

// --- room for labels -------------------------------------------------------------------------------------------------

void TakenRoom::Reset(QSize size)
{
    across = size.width() / Wide + 1;
    down = size.height() / High + 1;
    squares.resize(static_cast<std::size_t>(across) * down);
    for (auto& square : squares) square.clear();
}

QRect TakenRoom::SquaresOf(const QRect& box) const
{
    const auto bound = [](int square, int count) { return std::clamp(square, 0, count - 1); };
    return {QPoint(bound(box.left() / Wide, across), bound(box.top() / High, down)),
            QPoint(bound(box.right() / Wide, across), bound(box.bottom() / High, down))};
}

bool TakenRoom::Take(const QRect& box)
{
    const auto area = SquaresOf(box);
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            for (const auto& taken : At(x, y))
                if (taken.left() <= box.right() && box.left() <= taken.right() && taken.top() <= box.bottom() &&
                    box.top() <= taken.bottom())
                    return false;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x) At(x, y).push_back(box);
    return true;
}

// --- pictures --------------------------------------------------------------------------------------------------------

const QPixmap& SymbolPictures::Of(const std::string& file)
{
    const auto found = pictures.find(file);
    if (found != pictures.end()) return found->second;
    return pictures.emplace(file, Load(file)).first->second;
}

QPixmap SymbolPictures::Load(const std::string& file) const
{
    if (ratio > 1) {
        const QFileInfo info(Shown(DiskFiles().Resolved(file)));
        const auto twice = info.path() + "@2x/" + info.completeBaseName() + ".PNG";
        auto pixmap = QPixmap::fromImage(LoadedPicture(Typed(twice)));
        if (!pixmap.isNull()) {
            pixmap.setDevicePixelRatio(2);
            return pixmap;
        }
    }
    return QPixmap::fromImage(LoadedPicture(file));
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
    if (!form.SymPic.Exists(index) || index >= static_cast<int>(plot.size())) return;
    const auto& picture = form.SymPic(index);
    pair.lon = plot[index].Lon;
    pair.lat = plot[index].Lat;
    if (picture.visible && !picture.file.empty()) {
        pair.pictureWide = static_cast<short>(picture.width);
        pair.pictureHigh = static_cast<short>(picture.height);
        pair.picture = &pictures->Of(picture.file);
    }
    if (form.SymLbl.Exists(index) && form.SymLbl(index).visible && !form.SymLbl(index).caption.empty()) {
        const auto& label = form.SymLbl(index);
        pair.labelAside = static_cast<short>(picture.width);
        pair.labelWide = WidthOf(label.caption);
        pair.labelHigh = labelHeight;
    }
    Project(pair);
}

void SpriteLayer::Project(Pair& pair) const
{
    const double x = (frame.left - pair.lon) / (frame.left - frame.right) * size.width();
    const double y = (frame.top - pair.lat) / (frame.top - frame.bottom) * size.height();
    const auto corner = [](double place) {
        return static_cast<int>(std::lround(std::clamp(place, -30000.0, 30000.0)));
    };
    pair.pictureBox = {corner(x - pair.pictureWide / 2.0), corner(y - pair.pictureHigh), pair.pictureWide,
                       pair.pictureHigh};
    pair.labelBox = {corner(x - pair.labelAside), corner(y), pair.labelWide, pair.labelHigh};
}

/// What a station's symbol takes, with its ring.
QRect SpriteLayer::Extent(int index) const
{
    const auto& box = pairs[static_cast<std::size_t>(index)].pictureBox;
    return index == chosen && !box.isEmpty() ? box.adjusted(-RingRoom, -RingRoom, RingRoom, RingRoom) : box;
}

/// Gives each label the room it needs, in the order of their rank, and notes the boxes that came or went.
void SpriteLayer::ShareRoom(QRegion* changedBoxes)
{
    const QRect view({}, size);
    room.Reset(size);
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
    inView.reset();
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
            region += Extent(index);
            if (pairs[index].labelShown) region += pairs[index].labelBox;
        }
        Measure(index);
        if (!whole) region += Extent(index);
    }
    if (moved)
        for (auto& pair : pairs) Project(pair);
    ShareRoom(whole ? nullptr : &region);
    return whole ? QRegion(QRect({}, size)) : region;
}

// --- painting --------------------------------------------------------------------------------------------------------

void SpriteLayer::Paint(QPainter& painter, const QRegion& region) const
{
    const TouchedSquares squares(size, region);
    for (const auto& pair : pairs)
        if (pair.picture != nullptr && squares.MayHold(pair.pictureBox))
            painter.drawPixmap(pair.pictureBox, *pair.picture);
    painter.setFont(font);
    for (std::size_t i = 0; i < pairs.size(); ++i)
        if (pairs[i].labelShown && squares.MayHold(pairs[i].labelBox))
            PaintLabel(painter, form.SymLbl(static_cast<int>(i)), pairs[i].labelBox);
    PaintRing(painter);
}

void SpriteLayer::PaintLabel(QPainter& painter, const LabelSprite& label, const QRect& box) const
{
    painter.fillRect(box, PaletteColour(label.ground));
    painter.setPen(PaletteColour(label.colour));
    if (label.border) painter.drawRect(box.adjusted(0, 0, -1, -1));
    painter.drawText(box.adjusted(LabelMargin, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     Shown(label.caption));
}

void SpriteLayer::PaintRing(QPainter& painter) const
{
    if (Chosen() < 0) return;
    const auto ring = QRectF(BoxOf(chosen)).adjusted(-RingMargin, -RingMargin, RingMargin, RingMargin);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    for (const auto& [colour, width] : {std::pair{colour::Black, 2 * RingWidth}, {colour::Yellow, RingWidth}}) {
        painter.setPen(QPen(PaletteColour(colour), width));
        painter.drawRoundedRect(ring, RingRoom, RingRoom);
    }
    painter.restore();
}

// --- what stands where -----------------------------------------------------------------------------------------------

std::vector<int> SpriteLayer::AllAt(QPoint place) const
{
    std::vector<int> found;
    for (const bool byLabel : {true, false})
        for (std::size_t i = pairs.size(); i-- > 0;) {
            const auto& pair = pairs[i];
            const bool onLabel = pair.labelShown && pair.labelBox.contains(place);
            const bool onPicture = pair.picture != nullptr && pair.pictureBox.contains(place);
            if (byLabel ? onLabel : onPicture && !onLabel) found.push_back(static_cast<int>(i));
        }
    return found;
}

int SpriteLayer::At(QPoint place) const
{
    const auto all = AllAt(place);
    return all.empty() ? -1 : all.front();
}

QRect SpriteLayer::BoxOf(int station) const
{
    if (station < 0 || station >= static_cast<int>(pairs.size())) return {};
    const auto& pair = pairs[static_cast<std::size_t>(station)];
    return pair.picture == nullptr ? QRect() : pair.pictureBox;
}

const std::vector<int>& SpriteLayer::InView() const
{
    if (inView) return *inView;
    const QRect view({}, size);
    auto& shown = inView.emplace();
    for (int i = 0; i < static_cast<int>(pairs.size()); ++i)
        if (view.intersects(BoxOf(i))) shown.push_back(i);
    const auto fromMiddle = [&](int station) {
        const auto apart = BoxOf(station).center() - view.center();
        return QPoint::dotProduct(apart, apart);
    };
    const auto kept = std::min(shown.size(), MostInView);
    std::ranges::partial_sort(shown, shown.begin() + static_cast<std::ptrdiff_t>(kept), {}, fromMiddle);
    shown.resize(kept);
    return shown;
}

QRegion SpriteLayer::Choose(int station)
{
    QRegion rings;
    for (const int next : {Chosen(), station}) {
        chosen = next;
        if (Chosen() >= 0) rings += Extent(chosen);
    }
    return rings;
}

} // namespace halvern
