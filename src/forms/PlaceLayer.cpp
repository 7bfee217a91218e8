// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/PlaceLayer.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "forms/Glyphs.h"

namespace halvern {
namespace {

constexpr int Dot = 4;   ///< pixels across
constexpr int Gap = 3;   ///< between a dot and its name
constexpr int Sides = 4; ///< right, left, above, below
constexpr std::uint32_t LargePlace = 500000;
const QColor SmallColour(0x9A, 0x93, 0x80), LargeColour(0xC8, 0xBF, 0xA6), Shade(0, 0, 0, 150);

/// The squares of a view, and whether something stands in them.
class TakenSquares {
public:
    TakenSquares(std::vector<char>& squares, QSize size)
        : squares(squares), across(size.width() / Side + 1), down(size.height() / Side + 1)
    {
        squares.assign(static_cast<std::size_t>(across) * down, 0);
    }
    void Take(const QRect& box)
    {
        if (!box.isEmpty()) Any(box, [](char& square) { return square = 1, false; });
    }
    bool Free(const QRect& box) const
    {
        return !Any(box, [](const char& square) { return square != 0; });
    }

private:
    static constexpr int Side = 6;
    template <class Test> bool Any(const QRect& box, Test test) const
    {
        const int left = std::max(0, box.left() / Side), right = std::min(box.right() / Side, across - 1);
        const int top = std::max(0, box.top() / Side), bottom = std::min(box.bottom() / Side, down - 1);
        for (int y = top; y <= bottom; ++y)
            for (int x = left; x <= right; ++x)
                if (test(squares[static_cast<std::size_t>(y) * across + x])) return true;
        return false;
    }
    std::vector<char>& squares;
    int across, down;
};

QRect DotBox(QPoint dot)
{
    return {dot.x() - Dot / 2, dot.y() - Dot / 2, Dot, Dot};
}

} // namespace

QRect PlaceLayer::Name::Box(int side) const
{
    const QPoint corners[Sides] = {{Gap, -size.height() / 2},
                                   {-Gap - size.width(), -size.height() / 2},
                                   {-size.width() / 2, -Gap - size.height()},
                                   {-size.width() / 2, Gap}};
    return {dot + corners[side], size};
}

QFont PlaceLayer::FontOf(const Name& name) const
{
    auto own = font;
    if (name.large) own.setPointSizeF(font.pointSizeF() * 1.15);
    return own;
}

void PlaceLayer::TakeView(QSize nextSize, const QFont& nextFont)
{
    frame = form.Map1.Frame();
    size = nextSize;
    font = nextFont;
    shown.clear();
    for (const auto& place : names.InView({frame.top, frame.left, frame.bottom, frame.right}, view.MapRange)) {
        Name name{Shown(place.name), place.people >= LargePlace, {}, {}};
        name.dot = {static_cast<int>((frame.left - place.lon) / (frame.left - frame.right) * size.width()),
                    static_cast<int>((frame.top - place.lat) / (frame.top - frame.bottom) * size.height())};
        const QFontMetrics metrics(FontOf(name));
        name.size = {metrics.horizontalAdvance(name.text) + 2, metrics.height()};
        shown.push_back(std::move(name));
    }
}

QRegion PlaceLayer::Settle(QSize nextSize, const QFont& nextFont, const SpriteLayer& sprites, const QRect& scale)
{
    const auto& next = form.Map1.Frame();
    const bool fresh = nextSize != size || nextFont != font || next.left != frame.left || next.top != frame.top ||
                       next.right != frame.right || next.bottom != frame.bottom;
    settled = true;
    if (fresh) TakeView(nextSize, nextFont);
    TakenSquares room(squares, size);
    sprites.ForBoxes([&room](const QRect& box) { room.Take(box); });
    room.Take(scale);
    QRegion changed;
    for (auto& name : shown) {
        const auto fits = [&](int side) {
            const auto box = name.Box(side);
            return QRect({}, size).contains(box) && room.Free(box);
        };
        const int before = name.side;
        if (before < 0 || !fits(before)) { // else it stays where it stands
            name.side = 0;
            while (name.side < Sides && !fits(name.side)) ++name.side;
            if (name.side == Sides) name.side = -1;
        }
        if (name.side >= 0) room.Take(name.Box(name.side) | DotBox(name.dot));
        if (name.side == before) continue;
        if (before >= 0) changed += name.Box(before) | DotBox(name.dot);
        if (name.side >= 0) changed += name.Box(name.side) | DotBox(name.dot);
    }
    return fresh ? QRegion(QRect({}, size)) : changed;
}

void PlaceLayer::Paint(QPainter& painter, const QRegion& region) const
{
    for (const auto& name : shown) {
        if (name.side < 0) continue;
        const auto box = name.Box(name.side);
        if (!region.intersects(box | DotBox(name.dot))) continue;
        painter.fillRect(box, Shade);
        painter.fillRect(DotBox(name.dot), name.large ? LargeColour : SmallColour);
        painter.setFont(FontOf(name));
        painter.setPen(name.large ? LargeColour : SmallColour);
        painter.drawText(box, Qt::AlignCenter | Qt::TextSingleLine, name.text);
    }
}

} // namespace halvern
