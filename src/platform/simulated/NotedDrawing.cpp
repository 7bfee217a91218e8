// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/simulated/NotedDrawing.h"

#include <utility>

#include "platform/ConsoleText.h"
#include "platform/Text.h"

namespace halvern {

void NotedDrawing::Note(Step step)
{
    if (steps.size() >= MostSteps) steps.erase(steps.begin(), steps.begin() + MostSteps / 2);
    steps.push_back(std::move(step));
}

std::vector<NotedDrawing::Step> NotedDrawing::Take()
{
    return std::exchange(steps, {});
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
    }
    return {};
}

} // namespace halvern
