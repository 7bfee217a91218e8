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

void Surface::BeginLines(const LinesAgain& again)
{
    for (auto* painter : painters) painter->BeginLines(again);
}

void Surface::EndLines(std::size_t unseen)
{
    for (auto* painter : painters) painter->EndLines(unseen);
}

void Surface::Picture(const std::string& file, int wide, int high)
{
    for (auto* painter : painters) painter->Picture(file, wide, high);
}

void Surface::Keep(Surface& other)
{
    for (auto* painter : painters)
        for (auto* from : other.painters) painter->Keep(*from);
}

void Surface::WhitenGround()
{
    for (auto* painter : painters) painter->WhitenGround();
}

std::string Surface::Bitmap() const
{
    std::string bytes;
    for (std::size_t i = 0; i < painters.size() && bytes.empty(); ++i) bytes = painters[i]->Bitmap();
    return bytes;
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
