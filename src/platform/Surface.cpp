// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Surface.h"

#include <algorithm>
#include <cmath>

namespace halvern {

void Surface::Detach(Painter& painter)
{
    painters.erase(std::remove(painters.begin(), painters.end(), &painter), painters.end());
}

void Surface::Clear()
{
    for (auto* painter : painters) painter->Clear();
}

void Surface::SetFrame(const ViewFrame& next)
{
    frame = next;
    for (auto* painter : painters) painter->SetFrame(next);
}

void Surface::Point(double x, double y, int colour)
{
    for (auto* painter : painters) painter->Point(x, y, colour);
}

void Surface::LineTo(double x, double y, int colour)
{
    for (auto* painter : painters) painter->LineTo(x, y, colour);
}

void Surface::Box(double x1, double y1, double x2, double y2, int colour)
{
    for (auto* painter : painters) painter->Box(x1, y1, x2, y2, colour);
}

void Surface::Circle(double x, double y, double radius, int colour)
{
    for (auto* painter : painters) painter->Circle(x, y, radius, colour);
}

void Surface::Picture(const std::string& file, int wide, int high)
{
    for (auto* painter : painters) painter->Picture(file, wide, high);
}

void Surface::Keep(Surface& other)
{
    for (std::size_t i = 0; i < std::min(painters.size(), other.painters.size()); ++i)
        painters[i]->Keep(*other.painters[i]);
}

void Surface::SetSize(int wide, int high)
{
    if (wide < 1 || high < 1 || (wide == width && high == height)) return;
    width = wide;
    height = high;
    Tell({});
}

double Surface::UnitsWide(double pixels) const
{
    return std::abs(pixels * (frame.left - frame.right) / width);
}

double Surface::UnitsHigh(double pixels) const
{
    return std::abs(pixels * (frame.top - frame.bottom) / height);
}

} // namespace halvern
