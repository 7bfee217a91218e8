// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/simulated/KeptDrawing.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "platform/ConsoleText.h"
#include "platform/Text.h"
#include "platform/simulated/NotedDrawing.h"

namespace halvern {
namespace {

using Step = NotedDrawing::Step;

/// Writes what is drawn as text.
class Writer final : public Painter {
public:
    void Clear() override {}
    void SetFrame(const ViewFrame& frame) override
    {
        Line({Step::Frame, frame.left, frame.top, frame.right, frame.bottom});
    }
    void Point(double x, double y, int colour) override { Line({Step::Point, x, y, 0, 0, colour}); }
    void LineTo(double x, double y, int colour) override { Line({Step::Line, x, y, 0, 0, colour}); }
    void Box(double, double, double, double, int) override {}
    void Circle(double x, double y, double radius, int colour) override
    {
        Line({Step::Circle, x, y, radius, 0, colour});
    }
    void Picture(const std::string& file, int width, int height) override
    {
        text += "picture " + std::to_string(width) + " " + std::to_string(height) + " " + ConsoleQuoted(file) + "\n";
    }
    void Keep(Painter&) override {}
    std::string text;

private:
    void Line(const Step& step) { text += NotedDrawing::Text(step) + "\n"; }
};

/// One line of a drawing: its word, the numbers behind it, and a text in quotes.
struct Line {
    explicit Line(std::string_view text) : word(text.substr(0, text.find(' ')))
    {
        const char *at = text.data() + word.size(), *const end = text.data() + text.size();
        for (auto& number : numbers) {
            while (at != end && (*at == ' ' || *at == ',')) ++at;
            at = std::from_chars(at, end, number).ptr;
        }
        if (auto quote = text.find('"'); quote != text.npos) file = ConsoleUnquoted(text, quote).value_or("");
    }
    int Whole(std::size_t index) const { return static_cast<int>(numbers[index]); }
    std::string_view word;
    std::array<double, 4> numbers{};
    std::string file;
};

/// What a word draws.
struct Word {
    std::string_view word;
    void (*draw)(Surface& onto, const Line& line);
};

constexpr Word Words[] = {
    {"line", [](Surface& onto, const Line& l) { onto.LineTo(l.numbers[0], l.numbers[1], l.Whole(2)); }},
    {"point", [](Surface& onto, const Line& l) { onto.Point(l.numbers[0], l.numbers[1], l.Whole(2)); }},
    {"circle", [](Surface& onto, const Line& l) { onto.Circle(l.numbers[0], l.numbers[1], l.numbers[2], l.Whole(3)); }},
    {"frame",
     [](Surface& onto, const Line& l) {
         onto.SetFrame({l.numbers[0], l.numbers[1], l.numbers[2], l.numbers[3]});
     }},
    {"picture", [](Surface& onto, const Line& l) { onto.Picture(l.file, l.Whole(0), l.Whole(1)); }},
    {"size", [](Surface& onto, const Line& l) { onto.SetSize(l.Whole(0), l.Whole(1)); }},
    {"white", [](Surface& onto, const Line&) { onto.WhitenGround(); }},
};

} // namespace

void KeptDrawing::Clear()
{
    steps.clear();
    whiteGround = false;
    SetFrame(frame);
}

void KeptDrawing::SetFrame(const ViewFrame& next)
{
    frame = next;
    steps.emplace_back([next](Painter& painter) { painter.SetFrame(next); });
}

void KeptDrawing::Point(double x, double y, int colour)
{
    if (!inLines) steps.emplace_back([=](Painter& painter) { painter.Point(x, y, colour); });
}

void KeptDrawing::LineTo(double x, double y, int colour)
{
    if (!inLines) steps.emplace_back([=](Painter& painter) { painter.LineTo(x, y, colour); });
}

void KeptDrawing::Circle(double x, double y, double radius, int colour)
{
    steps.emplace_back([=](Painter& painter) { painter.Circle(x, y, radius, colour); });
}

void KeptDrawing::BeginLines(const LinesAgain& again)
{
    steps.push_back(again);
    inLines = true;
}

void KeptDrawing::Picture(const std::string& file, int width, int height)
{
    steps.emplace_back([=](Painter& painter) { painter.Picture(file, width, height); });
}

void KeptDrawing::Keep(Painter& other)
{
    const auto* from = dynamic_cast<KeptDrawing*>(&other);
    if (from == nullptr) return;
    if (from != this) steps = from->steps;
    SetFrame(frame);
}

std::string KeptDrawing::Bitmap()
{
    Writer writer;
    writer.text = "size " + std::to_string(surface.Width()) + " " + std::to_string(surface.Height()) + "\n";
    if (whiteGround) writer.text += "white\n";
    for (const auto& step : steps) step(writer);
    return paint(writer.text);
}

void DrawText(std::string_view drawing, Surface& onto)
{
    for (const auto text : LinesOf(drawing)) {
        const Line line(text);
        const auto* const word = std::ranges::find(Words, line.word, &Word::word);
        if (word != std::end(Words)) word->draw(onto, line);
    }
}

} // namespace halvern
