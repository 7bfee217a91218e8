// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "platform/Surface.h"

namespace halvern {

/// Notes what is drawn on a surface until somebody asks for it.
class NotedDrawing final : public Painter {
public:
    struct Step {
        enum Kind : unsigned char { Clear, Frame, Point, Line, Box, Circle, Picture } kind;
        double a = 0, b = 0, c = 0, d = 0;
        int colour = 0;
        std::string file;
    };
    /// Past this many steps the oldest half is forgotten, so that a station that nobody asks does not grow.
    static constexpr std::size_t MostSteps = 1 << 20;

    explicit NotedDrawing(Surface& surface) : surface(surface) { surface.Attach(*this); }
    ~NotedDrawing() override { surface.Detach(*this); }
    NotedDrawing(const NotedDrawing&) = delete;
    NotedDrawing& operator=(const NotedDrawing&) = delete;

    /// What was drawn since last asked.
    std::vector<Step> Take();
    /// A step as the console prints it, without the surface's name.
    static std::string Text(const Step& step);

    void Clear() override { Note({Step::Clear}); }
    void SetFrame(const ViewFrame& frame) override
    {
        Note({Step::Frame, frame.left, frame.top, frame.right, frame.bottom});
    }
    void Point(double x, double y, int colour) override { Note({Step::Point, x, y, 0, 0, colour}); }
    void LineTo(double x, double y, int colour) override { Note({Step::Line, x, y, 0, 0, colour}); }
    void Box(double x1, double y1, double x2, double y2, int colour) override
    {
        Note({Step::Box, x1, y1, x2, y2, colour});
    }
    void Circle(double x, double y, double radius, int colour) override
    {
        Note({Step::Circle, x, y, radius, 0, colour});
    }
    void Picture(const std::string& file, int, int) override { Note({Step::Picture, 0, 0, 0, 0, 0, file}); }
    void Keep(Painter&) override {}

private:
    void Note(Step step);
    Surface& surface;
    std::vector<Step> steps;
};

} // namespace halvern
