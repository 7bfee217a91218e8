// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Surface.h"

namespace halvern {

/// Keeps what stands on a surface as the way to draw it again, so that somebody else can make a picture of it. Of lines
/// that can be had again nothing else is kept.
class KeptDrawing final : public Painter {
public:
    /// Makes a BMP file of a drawing, see DrawText.
    using Paint = std::string (*)(const std::string& drawing);

    KeptDrawing(Surface& surface, Paint paint) : surface(surface), paint(paint) { surface.Attach(*this); }
    ~KeptDrawing() override { surface.Detach(*this); }
    KeptDrawing(const KeptDrawing&) = delete;
    KeptDrawing& operator=(const KeptDrawing&) = delete;

    void Clear() override;
    void SetFrame(const ViewFrame& frame) override;
    void Point(double x, double y, int colour) override;
    void LineTo(double x, double y, int colour) override;
    void Box(double, double, double, double, int) override {} // the rubber band is in no picture
    void Circle(double x, double y, double radius, int colour) override;
    void BeginLines(const LinesAgain& again) override;
    void EndLines(std::size_t) override { inLines = false; }
    void Picture(const std::string& file, int width, int height) override;
    void Keep(Painter& other) override;
    void WhitenGround() override { whiteGround = true; }
    std::string Bitmap() override;

private:
    Surface& surface;
    Paint paint;
    ViewFrame frame;
    std::vector<LinesAgain> steps;
    bool inLines = false, whiteGround = false;
};

/// Draws the text of a drawing, as a KeptDrawing writes it: a line for the size, "size W H", then a line a step in the
/// words that the console uses for them. What it can't read it leaves out.
void DrawText(std::string_view drawing, Surface& onto);

} // namespace halvern
