// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/Dial.h"

#include <cmath>
#include <utility>

namespace halvern {
namespace {

/// Where a point of a dial lies, as parts of its radius.
constexpr double LongTick = 0.86, ShortTick = 0.92, LabelPlace = 0.74, NeedleTip = 0.66, NeedleTail = 0.14,
                 NeedleHalf = 0.045;
constexpr double WordLines = 1.5; ///< under the dial, where no needle crosses the words

QPointF At(double angle, double distance)
{
    const double turned = qDegreesToRadians(angle);
    return {std::sin(turned) * distance, -std::cos(turned) * distance};
}

} // namespace

Dial::Dial(DialScale scale, QString words, QWidget* parent)
    : QWidget(parent), scale(std::move(scale)), words(std::move(words))
{
    setMinimumSize(sizeHint());
    Point(0);
}

QSize Dial::sizeHint() const
{
    constexpr int lines = 12;
    return QSize(lines, lines + 2) * fontMetrics().height();
}

void Dial::Point(double next)
{
    value = next;
    setAccessibleDescription(words.arg(value));
    update();
}

void Dial::SetScale(DialScale next)
{
    scale = std::move(next);
    update();
}

double Dial::AngleOf(double number) const
{
    return scale.start + scale.sweep * (number - scale.first) / (scale.last - scale.first);
}

void Dial::DrawScale(QPainter& painter, double radius) const
{
    const int steps = qRound((scale.last - scale.first) / scale.step);
    const int every = std::max(1, qRound(scale.labelled / scale.step));
    const bool circle = scale.sweep >= 360;
    for (int i = 0; i <= steps - (circle ? 1 : 0); ++i) {
        const double number = scale.first + i * scale.step, angle = AngleOf(number);
        const bool labelled = i % every == 0;
        painter.setPen(QPen(palette().color(QPalette::WindowText), labelled ? 2 : 1));
        painter.drawLine(At(angle, radius * (labelled ? LongTick : ShortTick)), At(angle, radius));
        if (!labelled) continue;
        QRectF box(0, 0, radius, fontMetrics().height());
        box.moveCenter(At(angle, radius * LabelPlace));
        painter.drawText(box, Qt::AlignCenter, scale.label(number));
    }
}

void Dial::DrawNeedle(QPainter& painter, double radius) const
{
    painter.save();
    painter.rotate(AngleOf(value));
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::Highlight));
    painter.drawPolygon(QPolygonF{
        {0, -radius * NeedleTip}, {radius * NeedleHalf, 0}, {0, radius * NeedleTail}, {-radius * NeedleHalf, 0}});
    painter.restore();
}

void Dial::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double below = fontMetrics().height() * WordLines;
    const double radius = std::min<double>(width(), height() - below) / 2 - 2;
    painter.translate(width() / 2.0, (height() - below) / 2);
    painter.setPen(QPen(palette().color(QPalette::Mid), 1));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawEllipse(QPointF(), radius, radius);
    DrawScale(painter, radius);
    DrawNeedle(painter, radius);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(QRectF(-radius, radius, 2 * radius, below), Qt::AlignCenter, words.arg(value));
}

} // namespace halvern
