// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/simulated/NotedDrawing.h"

#include <algorithm>
#include <utility>

#include "platform/ConsoleText.h"
#include "platform/Text.h"

namespace halvern {

namespace {

/// Lines that are had again, as the steps they are.
class Collected final : public Painter {
public:
    explicit Collected(std::vector<NotedDrawing::Step>& steps) : steps(steps) {}
    void Clear() override {}
    void SetFrame(const ViewFrame&) override {}
    void Point(double x, double y, int colour) override
    {
        steps.push_back({NotedDrawing::Step::Point, x, y, 0, 0, colour});
    }
    void LineTo(double x, double y, int colour) override
    {
        steps.push_back({NotedDrawing::Step::Line, x, y, 0, 0, colour});
    }
    void Box(double, double, double, double, int) override {}
    void Circle(double, double, double, int) override {}
    void Picture(const std::string&, int, int) override {}
    void Keep(Painter&) override {}

private:
    std::vector<NotedDrawing::Step>& steps;
};

} // namespace

void NotedDrawing::BeginLines(const LinesAgain& again)
{
    steps.push_back({.kind = Step::Lines, .again = std::make_shared<const LinesAgain>(again), .count = 0});
    inLines = true;
}

void NotedDrawing::EndLines(std::size_t unseen)
{
    inLines = false;
    if (unseen == 0) return;
    noted += unseen;
    steps.back().count += unseen;
    ForgetOldest();
}

void NotedDrawing::Note(Step step)
{
    ++noted;
    if (inLines)
        ++steps.back().count;
    else
        steps.push_back(std::move(step));
    ForgetOldest();
}

void NotedDrawing::ForgetOldest()
{
    for (const auto forgotten = Forgotten(); gone + steps.front().count <= forgotten; steps.pop_front())
        gone += steps.front().count;
}

std::size_t NotedDrawing::Forgotten() const
{
    constexpr auto half = MostSteps / 2;
    return noted <= MostSteps ? 0 : (noted - MostSteps + half - 1) / half * half;
}

std::vector<NotedDrawing::Step> NotedDrawing::Take()
{
    std::vector<Step> taken;
    Collected lines(taken);
    for (auto& step : steps) {
        if (step.kind == Step::Lines)
            (*step.again)(lines);
        else
            taken.push_back(std::move(step));
    }
    taken.erase(taken.begin(), taken.begin() + std::min(Forgotten() - gone, taken.size()));
    steps.clear();
    noted = gone = 0;
    return taken;
}

std::string NotedDrawing::Text(const Step& step)
{
    const auto pair = [](double x, double y) { return ConsoleNumber(x) + "," + ConsoleNumber(y); };
    const auto colour = " " + std::to_string(step.colour);
    switch (step.kind) {
    case Step::Clear:
        return "clear";
    case Step::Frame:
        return "frame " + pair(step.a, step.b) + " " + pair(step.c, step.d);
    case Step::Point:
        return "point " + pair(step.a, step.b) + colour;
    case Step::Line:
        return "line " + pair(step.a, step.b) + colour;
    case Step::Box:
        return "box " + pair(step.a, step.b) + " " + pair(step.c, step.d) + colour;
    case Step::Circle:
        return "circle " + pair(step.a, step.b) + " " + ConsoleNumber(step.c) + colour;
    case Step::Picture:
        return "picture " + ConsoleQuoted(step.file);
    case Step::Lines:
        break; // Take gives them out as points and lines
    }
    return {};
}

} // namespace halvern
