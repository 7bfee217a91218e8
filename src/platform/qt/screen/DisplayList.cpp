// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/screen/DisplayList.h"

#include <algorithm>
#include <cmath>

#include <QPainter>

#include "platform/qt/screen/Palette.h"
#include "platform/qt/screen/Pictures.h"

namespace halvern {

/// View coordinates to device pixels, and the pieces of lines that can be seen.
class Projection {
public:
    Projection(const ViewFrame& frame, QSize size, qreal ratio)
        : fineness(PointsApart * ratio), doubled(ratio >= FineScreen), frame(frame), wide(size.width()),
          high(size.height()), perX(wide / (frame.left - frame.right)), perY(high / (frame.top - frame.bottom))
    {
    }
    bool Near(QPointF one, QPointF other) const
    {
        return std::abs(one.x() - other.x()) < fineness && std::abs(one.y() - other.y()) < fineness;
    }
    QPointF At(double x, double y) const { return {(frame.left - x) * perX, (frame.top - y) * perY}; }
    double Length(double units) const { return std::abs(units * perX); }
    /// Which borders a point lies beyond; two points beyond the same one have no line to be seen between them.
    unsigned Beyond(QPointF point) const
    {
        return (point.x() < 0) | (point.x() > wide) << 1 | (point.y() < 0) << 2 | (point.y() > high) << 3;
    }
    /// Takes the next point of the line in hand; `from` is the one before, in view coordinates as `to` is. A stretch
    /// along a meridian or a parallel goes through the middles of pixels, or it would be sharp here and blurred there.
    void Take(QPointF from, QPointF to, QPointF next)
    {
        if (!piece.empty() && from.x() == to.x() && std::abs(from.y() - to.y()) * std::abs(perY) > LongStretch) {
            next.setX(std::floor(next.x()) + Middle);
            piece.back().setX(next.x());
        } else if (!piece.empty() && from.y() == to.y() && std::abs(from.x() - to.x()) * std::abs(perX) > LongStretch) {
            next.setY(std::floor(next.y()) + Middle);
            piece.back().setY(next.y());
        }
        piece.push_back(next);
    }
    /// Draws the line in hand, and forgets it.
    void DrawPiece(QPainter& painter)
    {
        const auto count = static_cast<int>(piece.size());
        if (count > 1) painter.drawPolyline(piece.data(), count);
        if (count > 1 && doubled) {
            for (auto& point : piece) point += QPointF(Beside, Beside);
            painter.drawPolyline(piece.data(), count);
        }
        piece.clear();
    }
    std::vector<QPointF> piece; ///< the line in hand, kept for its memory

private:
    /// Points nearer than this to the one before are left out, in pixels of an ordinary screen.
    static constexpr double PointsApart = 0.5;
    /// From this ratio on a line of one device pixel is too thin, and is drawn a second time beside itself.
    static constexpr double FineScreen = 1.5, Beside = 0.5;
    static constexpr double LongStretch = 12, Middle = 0.5; ///< device pixels
    double fineness;
    bool doubled;
    ViewFrame frame;
    double wide, high, perX, perY;
};

namespace {

void SetColour(QPainter& painter, int colour)
{
    QPen pen(PaletteColour(colour), 1);
    pen.setCosmetic(true); // the painter is fastest with these, smooth or not
    painter.setPen(pen);
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
    auto image = LoadedPicture(file);
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
            onto.DrawPiece(painter);
        else if (i + 1 < end && onto.Near(next, last))
            continue;
        const auto& from = points[i - 1];
        onto.Take(QPointF(from.x, from.y), QPointF(points[i].x, points[i].y), next);
        last = next;
        lastBeyond = beyond;
    }
    onto.DrawPiece(painter);
}

NetLines DisplayList::Net() const
{
    NetLines net;
    const auto frame = frames.back();
    const auto crosses = [](double from, double to, double high, double low) { // most of the view
        return std::min(std::max(from, to), high) - std::max(std::min(from, to), low) > (high - low) / 2;
    };
    for (std::size_t i = 0; i < steps.size(); ++i) {
        if (steps[i].kind != Step::Line || steps[i].colour != colour::Blue) continue;
        const auto end = i + 1 < steps.size() ? steps[i + 1].first : points.size();
        for (std::size_t next = steps[i].first + 1; next < end; ++next) {
            const auto& [x1, y1] = points[next - 1];
            const auto& [x2, y2] = points[next];
            if (y1 == y2 && y1 < frame.top && y1 > frame.bottom && crosses(x1, x2, frame.left, frame.right))
                net.parallels.insert(y1);
            else if (x1 == x2 && x1 < frame.left && x1 > frame.right && crosses(y1, y2, frame.top, frame.bottom))
                net.meridians.insert(x1);
        }
    }
    return net;
}

void DisplayList::DrawOn(QImage& image, qreal ratio) const
{
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    Projection onto(frames.front(), image.size(), ratio);
    auto frame = frames.begin();
    auto picture = pictures.begin();
    int colour = -1;
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const auto& step = steps[i];
        const auto end = i + 1 < steps.size() ? steps[i + 1].first : points.size();
        if (step.kind == Step::Frame) {
            onto = Projection(*frame++, image.size(), ratio);
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
