// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/DisplayList.h"

#include <cmath>

#include <QPainter>

#include "platform/qt/Palette.h"

namespace halvern {

/// View coordinates to device pixels, and the pieces of lines that can be seen.
class Projection {
public:
    Projection(const ViewFrame& frame, QSize size)
        : frame(frame), wide(size.width()), high(size.height()), perX(wide / (frame.left - frame.right)),
          perY(high / (frame.top - frame.bottom))
    {
    }
    QPointF At(double x, double y) const { return {(frame.left - x) * perX, (frame.top - y) * perY}; }
    double Length(double units) const { return std::abs(units * perX); }
    /// Which borders a point lies beyond; two points beyond the same one have no line to be seen between them.
    unsigned Beyond(QPointF point) const
    {
        return (point.x() < 0) | (point.x() > wide) << 1 | (point.y() < 0) << 2 | (point.y() > high) << 3;
    }
    std::vector<QPointF> piece; ///< the line in hand, kept for its memory

private:
    ViewFrame frame;
    double wide, high, perX, perY;
};

namespace {

/// Points nearer than this to the one before are left out, in device pixels.
constexpr double Fineness = 0.5;
/// From this ratio on a line of one device pixel is too thin, and is drawn a second time beside itself.
constexpr double FineScreen = 1.5;

void SetColour(QPainter& painter, int colour)
{
    QPen pen(PaletteColour(colour), 1);
    pen.setCosmetic(true); // the painter is fastest with these, smooth or not
    painter.setPen(pen);
}

void DrawPiece(QPainter& painter, std::vector<QPointF>& piece)
{
    if (piece.size() > 1) painter.drawPolyline(piece.data(), static_cast<int>(piece.size()));
    piece.clear();
}

} // namespace

void DisplayList::SetFrame(const ViewFrame& frame)
{
    if (!steps.empty() && steps.back().kind == Step::Frame) {
        frames.back() = frame;
        return;
    }
    Begin(Step::Frame, 0);
    frames.push_back(frame);
}

void DisplayList::Circle(float x, float y, float radius, int colour)
{
    Begin(Step::Circle, colour);
    points.push_back({x, y});
    points.push_back({radius, 0});
}

void DisplayList::Picture(const std::string& file, QSizeF share)
{
    QImage image(QString::fromStdString(file));
    if (image.isNull()) return;
    Begin(Step::Picture, 0);
    pictures.push_back({std::move(image), share});
}

void DisplayList::DrawLine(QPainter& painter, std::size_t first, std::size_t end, Projection& onto) const
{
    auto last = onto.At(points[first].x, points[first].y);
    if (end - first == 1) return painter.drawPoint(last);
    auto lastBeyond = onto.Beyond(last);
    onto.piece.assign(1, last);
    for (std::size_t i = first + 1; i < end; ++i) {
        const auto next = onto.At(points[i].x, points[i].y);
        const auto beyond = onto.Beyond(next);
        if ((beyond & lastBeyond) != 0)
            DrawPiece(painter, onto.piece);
        else if (i + 1 < end && std::abs(next.x() - last.x()) < Fineness && std::abs(next.y() - last.y()) < Fineness)
            continue;
        onto.piece.push_back(next);
        last = next;
        lastBeyond = beyond;
    }
    DrawPiece(painter, onto.piece);
}

void DisplayList::DrawOn(QImage& image, qreal ratio) const
{
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    Projection onto(frames.front(), image.size());
    auto frame = frames.begin();
    auto picture = pictures.begin();
    int colour = -1;
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const auto& step = steps[i];
        const auto end = i + 1 < steps.size() ? steps[i + 1].first : points.size();
        if (step.kind == Step::Frame) {
            onto = Projection(*frame++, image.size());
            continue;
        }
        if (step.kind == Step::Picture) {
            const QSizeF covered(picture->share.width() * image.width(), picture->share.height() * image.height());
            painter.drawImage(QRectF(QPointF(), covered), (picture++)->image);
            continue;
        }
        if (colour != step.colour) SetColour(painter, colour = step.colour);
        if (step.kind == Step::Circle) {
            const auto radius = onto.Length(points[step.first + 1].x);
            painter.drawEllipse(onto.At(points[step.first].x, points[step.first].y), radius, radius);
            continue;
        }
        DrawLine(painter, step.first, end, onto);
        if (ratio < FineScreen) continue;
        painter.translate(Fineness, Fineness);
        DrawLine(painter, step.first, end, onto);
        painter.translate(-Fineness, -Fineness);
    }
}

const QImage& DisplayList::Image(QSize devicePixels, qreal ratio) const
{
    if (drawn.size() == devicePixels && drawn.devicePixelRatio() == ratio) return drawn;
    drawn = QImage(devicePixels, QImage::Format_RGB32);
    drawn.fill(PaletteColour(colour::Black));
    DrawOn(drawn, ratio);
    drawn.setDevicePixelRatio(ratio);
    return drawn;
}

} // namespace halvern
