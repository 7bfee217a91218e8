// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "platform/Surface.h"

namespace halvern {

/// Notes what is drawn on a surface until somebody asks for it. Of lines that can be had again only that is noted: they
/// are read once more when they are asked for.
class NotedDrawing : public Painter {
public:
    /// One drawing step as it was asked for.
    struct Step {
        enum Kind : unsigned char { Clear, Frame, Point, Line, Box, Circle, Picture, Lines } kind;
        double a = 0, b = 0, c = 0, d = 0;
        int colour = 0;
        std::string file;
        std::shared_ptr<const LinesAgain> again;
        std::size_t count = 1; ///< how many steps it stands for
    };
    /// Past this many steps the oldest half is forgotten, so that a station that nobody asks does not grow.
    static constexpr std::size_t MostSteps = 1 << 20;

    /// Notes all steps of a surface from now on.
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
    void BeginLines(const LinesAgain& again) override;
    void EndLines(std::size_t unseen) override;
    void Picture(const std::string& file, int width, int height) override
    {
        Note({Step::Picture, static_cast<double>(width), static_cast<double>(height), 0, 0, 0, file});
    }
    void Keep(Painter&) override {}

private:
    void Note(Step step);
    void ForgetOldest();
    /// How many of the oldest steps are forgotten by now.
    std::size_t Forgotten() const;

    Surface& surface;
    std::deque<Step> steps;
    std::size_t noted = 0; ///< since last asked
    std::size_t gone = 0;  ///< of these, the ones before the first in `steps`
    bool inLines = false;
};

} // namespace halvern
