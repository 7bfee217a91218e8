// SPDX-License-Identifier: GPL-3.0-or-later
#include "MapFile.h"

#include "Output.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <stdexcept>
#include <string>

namespace halvern::mapmaker {

namespace {

// LineFormat: a character's code less 27 is 8 to 228 here. The smallest offsets stay free, so that no line begins
// with a blank, and so do the codes below 32 that would end a line.
constexpr int CodeBase = 27;
constexpr int MinAcross = 128;
constexpr int MaxAcross = 228 * 16 + 15;
constexpr int MinDown = 64;
constexpr int MaxDown = 228 * 8 + 7;
constexpr int MinLowBits = 5;
constexpr std::size_t LongestRun = 4000;

struct Offset {
    long across = 0;
    long down = 0;

    bool operator==(const Offset&) const = default;
};

/// Where offsets are counted from, and how.
struct Origin {
    double top = 0;
    double left = 0;
    double scale = 1;

    Offset Of(const Vertex& vertex) const
    {
        return {std::lround((left - vertex.lon) * scale), std::lround((top - vertex.lat) * scale)};
    }
};

/// The origin is written with four decimals; it is rounded away from the frame, so that no offset falls short.
double RoundedUp(double value)
{
    return std::ceil(value * 10000) / 10000;
}

std::string Number(double value)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.8g", value);
    return text;
}

std::string Head(const MapPlan& plan, const Origin& origin)
{
    return Number(origin.top) + "\n" + Number(origin.left) + "\n" + std::to_string(std::lround(origin.scale)) + "\n" +
           Number(plan.frame.bottom) + "\n" + Number(plan.frame.right) + "\n" + std::to_string(plan.widestStep) + "\n" +
           std::to_string(plan.narrowestStep) + "\n" + (plan.format == BodyFormat::Ascii ? "ASCII\n" : "LineFormat\n");
}

/// The offsets of a path without those that repeat the one before.
std::vector<Offset> OffsetsOf(const Path& path, const Origin& origin)
{
    std::vector<Offset> offsets;
    for (const Vertex& vertex : path)
        if (const Offset offset = origin.Of(vertex); offsets.empty() || !(offsets.back() == offset))
            offsets.push_back(offset);
    return offsets;
}

void AppendAscii(std::string& text, const DrawnLine& line, const std::vector<Offset>& offsets)
{
    text += "0,0," + std::to_string(line.colour) + "," + line.name + "\n";
    for (const Offset& offset : offsets)
        text += std::to_string(offset.across) + "," + std::to_string(offset.down) + "\n";
}

/// Three characters: the high parts of both offsets and one for the low four bits of one and the low three of the
/// other. Where that one would fall below a blank, 16 is carried over from the high part.
void AppendPacked(std::string& text, const Offset& offset)
{
    long high = offset.across / 16;
    long low = (offset.across % 16) * 8 + offset.down % 8;
    if (low < MinLowBits) {
        low += 16 * 8;
        --high;
    }
    text += static_cast<char>(high + CodeBase);
    text += static_cast<char>(offset.down / 8 + CodeBase);
    text += static_cast<char>(low + CodeBase);
}

void AppendLineFormat(std::string& text, const DrawnLine& line, const std::vector<Offset>& offsets)
{
    text += std::to_string(line.colour) + "\n";
    for (const Offset& offset : offsets) AppendPacked(text, offset);
    text += "\n";
}

Origin OriginOf(const MapPlan& plan)
{
    if (plan.format == BodyFormat::Ascii) {
        if (plan.unitsPerDegree < 1) throw std::runtime_error("a map needs at least one unit per degree");
        // An offset 0 has a meaning of its own in the format, so the frame's edge is offset 1.
        const double unit = 1.0 / plan.unitsPerDegree;
        return {RoundedUp(plan.frame.top + unit), RoundedUp(plan.frame.left + unit),
                static_cast<double>(plan.unitsPerDegree)};
    }
    const int scale = LineFormatScale(plan.frame);
    if (scale < 1) throw std::runtime_error("the area is too large for the format LineFormat");
    return {RoundedUp(plan.frame.top + (MinDown + 1.0) / scale), RoundedUp(plan.frame.left + (MinAcross + 1.0) / scale),
            static_cast<double>(scale)};
}

} // namespace

int LineFormatScale(const Box& frame)
{
    const double down = (MaxDown - MinDown - 2) / (frame.top - frame.bottom);
    const double across = (MaxAcross - MinAcross - 2) / (frame.left - frame.right);
    return static_cast<int>(std::min({down, across, 100000.0}));
}

MapFigures WriteMap(const std::filesystem::path& file, const MapPlan& plan, const std::vector<DrawnLine>& lines)
{
    const Origin origin = OriginOf(plan);
    MapFigures figures;
    std::string text = Head(plan, origin);
    for (const DrawnLine& line : lines)
        for (const Path& piece : Clip(line.vertices, plan.frame))
            for (const Path& run : CutToRuns(piece, LongestRun)) {
                const std::vector<Offset> offsets = OffsetsOf(run, origin);
                if (offsets.size() < 2) continue;
                if (plan.format == BodyFormat::Ascii)
                    AppendAscii(text, line, offsets);
                else
                    AppendLineFormat(text, line, offsets);
                figures.points += offsets.size();
            }
    text += plan.format == BodyFormat::Ascii ? "0,-1\n" : "-1\n";
    WriteWhole(file, text);
    figures.bytes = text.size();
    return figures;
}

} // namespace halvern::mapmaker
