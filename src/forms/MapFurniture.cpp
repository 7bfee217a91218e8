// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/MapFurniture.h"

#include <QtWidgets>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "forms/Glyphs.h"
#include "platform/Text.h"
#include "platform/qt/screen/Palette.h"
#include "view/Ground.h"
#include "view/MapScale.h"

namespace halvern {
namespace {

constexpr int Margin = 3;
const QColor FigureColour(0x8A, 0x9F, 0xC4), ScaleColour(0xE4, 0xE8, 0xEC), Shade(0, 0, 0, 170);

QString Length(double length, const char* unit)
{
    return Shown(PlainNumber(length)) + " " + unit;
}

/// Degrees from line to line, or 1 where there is one line alone.
double Spacing(const std::set<float>& lines)
{
    return lines.size() < 2 ? 1 : (*lines.rbegin() - *lines.begin()) / static_cast<double>(lines.size() - 1);
}

} // namespace

void MapFurniture::Settle(const ViewFrame& nextFrame, QSize nextSize, const QFont& nextFont, qreal nextRatio,
                          const NetLines& net)
{
    frame = nextFrame;
    size = nextSize;
    font = nextFont;
    ratio = nextRatio;
    settled = true;
    LayOutScale();
    LayOutFigures(net);
}

/// Parallels along the left edge, meridians along the upper one; where two would meet, the second is left out.
void MapFurniture::LayOutFigures(const NetLines& net)
{
    figures.clear();
    const QFontMetrics metrics(font);
    const int high = metrics.height();
    const auto put = [&](const QString& text, QPoint place, bool centred) {
        const int wide = metrics.horizontalAdvance(text) + 2 * Margin;
        const QRect box(place.x() - (centred ? wide / 2 : 0), place.y() - (centred ? 0 : high / 2), wide, high);
        const auto room = box.adjusted(-high / 2, -high / 2, high / 2, high / 2);
        const auto meets = [&](const Figure& other) { return other.box.intersects(room); };
        if (!QRect({}, size).contains(box) || box.intersects(scale.box) || std::ranges::any_of(figures, meets)) return;
        figures.push_back({box, text});
    };
    for (const float lat : net.parallels)
        put(Shown(LatitudeFigure(RoundInNet(lat, Spacing(net.parallels)))),
            {0, static_cast<int>((frame.top - lat) / (frame.top - frame.bottom) * size.height())}, false);
    for (const float lon : net.meridians)
        put(Shown(LongitudeFigure(RoundInNet(lon, Spacing(net.meridians)))),
            {static_cast<int>((frame.left - lon) / (frame.left - frame.right) * size.width()), 0}, true);
}

void MapFurniture::LayOutScale()
{
    scale = {};
    const QFontMetrics metrics(font);
    const double middle = std::clamp((frame.top + frame.bottom) / 2, -85.0, 85.0);
    const double perMileHigh = size.height() / (frame.top - frame.bottom) / 60;
    const double perMileWide =
        size.width() / (frame.left - frame.right) / 60 / std::cos(middle * std::numbers::pi / 180);
    const double widest = metrics.averageCharWidth() * 22, highest = size.height() / 4.0;
    const double miles = RoundLength(std::min(widest / perMileWide, highest / perMileHigh));
    const double kilometres = RoundLength(widest / perMileWide * NauticalMile);
    if (!(miles > 0) || size.width() < 3 * widest || size.height() < 8 * metrics.height()) return;
    scale.miles = Length(miles, "nm");
    scale.kilometres = Length(kilometres, "km");
    scale.wideMiles = static_cast<int>(std::lround(miles * perMileWide));
    scale.wideKilometres = static_cast<int>(std::lround(kilometres / NauticalMile * perMileWide));
    scale.highMiles = static_cast<int>(std::lround(miles * perMileHigh));
    const int high = std::max(scale.highMiles, metrics.height()) + metrics.height() + 3 * Margin;
    const int text = metrics.horizontalAdvance(scale.miles) + metrics.horizontalAdvance(scale.kilometres) / 2;
    const int wide = std::max({scale.wideMiles, scale.wideKilometres, text}) + metrics.averageCharWidth() * 5;
    scale.box = {2 * Margin, size.height() - high - 2 * Margin, wide, high};
    scale.corner = scale.box.bottomLeft() + QPoint(2 * Margin, -metrics.height() - Margin);
}

void MapFurniture::PaintFigures(QPainter& painter, const QRegion& region) const
{
    painter.setFont(font);
    for (const auto& [box, text] : figures) {
        if (!region.intersects(box)) continue;
        painter.fillRect(box, Shade);
        painter.setPen(FigureColour);
        painter.drawText(box, Qt::AlignCenter, text);
    }
}

/// Miles along the upper side of the long leg and up the short one, kilometres below.
void MapFurniture::PaintScale(QPainter& painter, const QRegion& region) const
{
    if (scale.box.isEmpty() || !region.intersects(scale.box)) return;
    painter.setFont(font);
    const auto& [box, corner, wide, wideKm, high, miles, kilometres] = scale;
    const int tick = Margin + 1, line = std::max(wide, wideKm);
    const std::pair<QPoint, QPoint> bars[] = {{{0, 0}, {line, 0}},
                                              {{0, 0}, {0, -high}},
                                              {{0, -high}, {tick, -high}},
                                              {{wide, 0}, {wide, -tick}},
                                              {{wideKm, 0}, {wideKm, tick}}};
    const auto boxOf = [at = corner](const auto& bar) {
        return QRect(at + bar.first, at + bar.second).normalized().adjusted(0, 0, 1, 0);
    };
    for (const auto& bar : bars) painter.fillRect(boxOf(bar).adjusted(-1, -1, 1, 1), Shade);
    for (const auto& bar : bars) painter.fillRect(boxOf(bar), ScaleColour);
    painter.setPen(ScaleColour);
    const QFontMetrics metrics(font);
    const int row = metrics.height();
    for (const auto& [text, above] : {std::pair{miles, row + 1}, {kilometres, -Margin}}) {
        const QRect words(corner + QPoint(2 * Margin, -above), QSize(metrics.horizontalAdvance(text), row));
        painter.fillRect(words, Shade);
        painter.drawText(words, Qt::AlignCenter, text);
    }
}

// --- the legend ------------------------------------------------------------------------------------------------------

MapLegend::MapLegend(QWidget* map) : QFrame(map)
{
    struct Row {
        int colour;
        QString words;
    };
    const Row rows[] = {{colour::White, tr("Takes messages")},
                        {colour::Grey, tr("Takes none")},
                        {colour::Magenta, tr("Object")},
                        {colour::Brown, tr("Own object")},
                        {colour::Red, tr("Other")}};
    setObjectName("MapLegend");
    setAccessibleName(tr("Colours of labels"));
    setCursor(Qt::ArrowCursor);
    setAutoFillBackground(true);
    auto shade = palette();
    shade.setColor(QPalette::Window, PaletteColour(colour::Black));
    setPalette(shade);
    setFrameStyle(QFrame::NoFrame);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(2 * Margin, Margin, Margin, Margin);
    grid->setSpacing(0);
    for (const auto& [number, words] : rows) {
        auto* label = new QLabel(words, this);
        auto colours = label->palette();
        colours.setColor(QPalette::WindowText, PaletteColour(number));
        label->setPalette(colours);
        grid->addWidget(label, grid->rowCount(), 0);
    }
    auto* away = new QToolButton(this);
    away->setText(QStringLiteral("\u00D7"));
    away->setAutoRaise(true);
    away->setFocusPolicy(Qt::NoFocus); // the View menu does it by keys
    away->setToolTip(tr("Put the legend away"));
    away->setAccessibleName(away->toolTip());
    auto onBlack = away->palette();
    onBlack.setColor(QPalette::ButtonText, ScaleColour);
    onBlack.setColor(QPalette::WindowText, ScaleColour);
    onBlack.setColor(QPalette::Button, PaletteColour(colour::Black));
    away->setPalette(onBlack);
    grid->addWidget(away, 1, 1, 2, 1, Qt::AlignTop | Qt::AlignRight); // higher than one row
    connect(away, &QToolButton::clicked, this, &MapLegend::PutAway);
}

void MapLegend::Settle(QSize map)
{
    const auto own = sizeHint();
    const bool fits = map.width() > 3 * own.width() && map.height() > 3 * own.height();
    setGeometry(QRect(QPoint(map.width() - own.width() - 2 * Margin, map.height() - own.height() - 2 * Margin), own));
    setVisible(fits);
}

} // namespace halvern
