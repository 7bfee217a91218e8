// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include <QImage>
#include <QSizeF>

#include "platform/Surface.h"

class QPainter;

namespace halvern {

/// Where the net of a map's meridians and parallels stands in its view. Degrees, north and west positive.
struct NetLines {
    std::set<float> parallels, meridians;
};

/// What was drawn on a map, in order, eight bytes a point.
class DisplayList {
public:
    explicit DisplayList(const ViewFrame& frame = {}) { SetFrame(frame); }

    void SetFrame(const ViewFrame& frame);
    void Point(float x, float y, int colour)
    {
        Begin(Step::Line, colour);
        points.push_back({x, y});
    }
    void LineTo(float x, float y, int colour)
    {
        if (steps.back().kind != Step::Line) return Point(x, y, colour);
        if (steps.back().colour != colour) Point(points.back().x, points.back().y, colour);
        points.push_back({x, y});
    }
    void Circle(float x, float y, float radius, int colour);
    /// @param share  part of the surface's width and height that the picture covers
    void Picture(const std::string& file, QSizeF share);

    /// Nothing but its frame.
    bool Empty() const { return points.empty() && pictures.empty(); }

    /// The straight blue lines that cross most of the last frame.
    NetLines Net() const;

    /// Draws everything on an image, in its device pixels.
    /// @param ratio  device pixels to a pixel of an ordinary screen
    void DrawOn(QImage& image, qreal ratio) const;
    /// The list alone on black; made once for a size, until it is forgotten because the list has changed.
    const QImage& Image(QSize devicePixels, qreal ratio) const;
    void ForgetImage() { drawn = {}; }

private:
    struct Vertex {
        float x, y;
    };
    /// Its points go on to where those of the next step begin. A frame or a picture has none: it is the next of its
    /// kind.
    struct Step {
        enum Kind : std::uint8_t { Frame, Line, Circle, Picture } kind;
        std::uint8_t colour;
        std::uint32_t first;
    };
    struct ShownPicture {
        QImage image;
        QSizeF share;
    };

    void Begin(Step::Kind kind, int colour)
    {
        steps.push_back({kind, static_cast<std::uint8_t>(colour), static_cast<std::uint32_t>(points.size())});
    }
    void DrawLine(QPainter& painter, std::size_t first, std::size_t end, class Projection& onto) const;

    std::vector<Vertex> points;
    std::vector<Step> steps;
    std::vector<ViewFrame> frames;
    std::vector<ShownPicture> pictures;
    mutable QImage drawn;
};

} // namespace halvern
