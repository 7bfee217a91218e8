// SPDX-License-Identifier: GPL-3.0-or-later
#include "Commands.h"

#include "MapList.h"
#include "Output.h"
#include "Picture.h"
#include "RegionTiles.h"
#include "VectorFile.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>
#include <numbers>
#include <set>
#include <stdexcept>

namespace halvern::mapmaker {

namespace {

constexpr std::size_t CalmPoints = 120000;

double Cosine(double lat)
{
    return std::cos(lat * std::numbers::pi / 180);
}

std::vector<DrawnLine> ReadInputs(const Task& task)
{
    if (task.inputs.empty()) throw std::runtime_error("no vector file is named; --help tells how");
    const Rules rules = task.rules.empty() ? Rules(task.colour) : Rules::Parse(ReadWhole(task.rules));
    std::vector<DrawnLine> lines;
    for (const std::filesystem::path& input : task.inputs) {
        std::vector<DrawnLine> more = ReadVectorFile(input, rules);
        std::move(more.begin(), more.end(), std::back_inserter(lines));
    }
    for (DrawnLine& line : lines)
        if (task.tolerance > 0) line.vertices = Simplify(line.vertices, task.tolerance);
    if (lines.empty()) throw std::runtime_error("the vector files hold no line that the rules let through");
    return lines;
}

Box FrameFor(const Task& task, const std::vector<DrawnLine>& lines)
{
    if (task.frame.top > task.frame.bottom) return task.frame;
    Box frame = BoundsOf(lines.front().vertices);
    for (const DrawnLine& line : lines) {
        const Box bounds = BoundsOf(line.vertices);
        frame = {std::max(frame.top, bounds.top), std::max(frame.left, bounds.left),
                 std::min(frame.bottom, bounds.bottom), std::min(frame.right, bounds.right)};
    }
    if (!(frame.top > frame.bottom && frame.left > frame.right))
        throw std::runtime_error("the lines cover no area; name one with --box");
    return frame;
}

void NoteIfSlow(const MapFigures& figures)
{
    if (figures.points > CalmPoints)
        std::printf("note: a map of more than %zu points draws slowly; --tolerance thins it out\n", CalmPoints);
}

void CheckName(const std::string& name)
{
    const bool plain = std::all_of(name.begin(), name.end(), [](unsigned char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_';
    });
    if (name.empty() || name.size() > 8 || !plain)
        throw std::runtime_error("--name takes 1 to 8 letters, digits, - or _");
}

void CheckSteps(int widest, int narrowest)
{
    for (const int step : {widest, narrowest})
        if (step != 0 && std::find(ListSteps.begin(), ListSteps.end(), step) == ListSteps.end())
            throw std::runtime_error("--steps: " + std::to_string(step) + " isn't 2048, 1024, 512 ... 2 or 1");
}

/// The name of the map that the list gives for a centre: the first of the nearest.
const ListEntry& Nearest(const std::vector<ListEntry>& entries, double lat, double lon)
{
    return *std::min_element(entries.begin(), entries.end(), [&](const ListEntry& one, const ListEntry& other) {
        return std::hypot(one.lat - lat, one.lon - lon) < std::hypot(other.lat - lat, other.lon - lon);
    });
}

/// How many of a hundred views that choose the map at a step lie within it. Views are tried as far around as the list
/// gives this map.
int CoveredShare(const std::vector<ListEntry>& entries, const std::string& name, const Box& frame, int step)
{
    constexpr double Reach = 8;
    constexpr int Tries = 160;
    const double midLat = (frame.top + frame.bottom) / 2;
    const double midLon = (frame.left + frame.right) / 2;
    int chosen = 0;
    int covered = 0;
    for (int i = 0; i <= Tries; ++i)
        for (int j = 0; j <= Tries; ++j) {
            const double lat = std::clamp(midLat + Reach * (2.0 * i / Tries - 1), -85.0, 85.0);
            const double lon = midLon + Reach * (2.0 * j / Tries - 1);
            if (Nearest(entries, lat, lon).name != name) continue;
            const double up = step / 60.0;
            const double side = step * 4 / (Cosine(lat) * 3 * 60);
            ++chosen;
            if (frame.Holds({lat + up, lon + side}) && frame.Holds({lat - up, lon - side})) ++covered;
        }
    return chosen == 0 ? 100 : covered * 100 / chosen;
}

void Enlist(const LinesTask& task, const Box& frame)
{
    const std::filesystem::path file = task.data / "maplist" / "maplist1.hvn";
    MapList list = MapList::Read(file);
    list.Remove(task.name);
    int leastShare = 100;
    for (int step = task.widest; step >= task.narrowest; step /= 2) {
        list.Add(step, {task.name, (frame.top + frame.bottom) / 2, (frame.left + frame.right) / 2});
        leastShare = std::min(leastShare, CoveredShare(list.Entries(step), task.name, frame, step));
    }
    if (leastShare < 90)
        std::printf("note: only %d of 100 views that will choose this map, as the nearest, lie within it; a larger\n"
                    "      --box mends that, or the command add, which puts the lines into the maps that are there\n",
                    leastShare);
    list.Write(file);
    std::printf("%s: %s is entered for steps %d to %d\n", file.c_str(), task.name.c_str(), task.widest, task.narrowest);
}

/// Marks the names of lines that were added to a map, so that they can be taken out again.
const std::string AddedMark = "+";

/// Puts those lines that a map's frame holds behind its own. The map becomes one of ASCII, which keeps their precision.
void AddToMap(const AddTask& task, const std::filesystem::path& file, const std::vector<DrawnLine>& lines)
{
    MapContent map = ReadMap(file);
    constexpr double Globe = 300;
    if (map.plan.frame.left - map.plan.frame.right > Globe) return; // shared by cells far apart
    const std::size_t own = map.lines.size();
    if (!task.append) std::erase_if(map.lines, [](const DrawnLine& line) { return line.name.starts_with(AddedMark); });
    const std::size_t kept = map.lines.size();
    for (const DrawnLine& line : lines)
        if (!Clip(line.vertices, map.plan.frame).empty()) map.lines.push_back(line);
    if (map.lines.size() == kept && kept == own) return;
    map.plan.format = BodyFormat::Ascii;
    map.plan.unitsPerDegree = std::max(map.plan.unitsPerDegree, task.unitsPerDegree);
    const MapFigures figures = WriteMap(file, map.plan, map.lines);
    std::printf("%s: %zu lines added, %zu points in all\n", file.c_str(), map.lines.size() - kept, figures.points);
    NoteIfSlow(figures);
}

} // namespace

void MakeLines(const LinesTask& task)
{
    CheckName(task.name);
    CheckSteps(task.widest, task.narrowest);
    const std::vector<DrawnLine> lines = ReadInputs(task);
    const MapPlan plan{task.format, FrameFor(task, lines), task.unitsPerDegree, task.widest, task.narrowest};
    const std::filesystem::path file = task.data / "dosmaps" / (task.name + ".map");
    const MapFigures figures = WriteMap(file, plan, lines);
    std::printf("%s: %zu points, %zu bytes\n", file.c_str(), figures.points, figures.bytes);
    NoteIfSlow(figures);
    if (task.widest > 0) Enlist(task, plan.frame);
}

void AddToMaps(const AddTask& task)
{
    CheckSteps(task.widest, task.narrowest);
    std::vector<DrawnLine> lines = ReadInputs(task);
    for (DrawnLine& line : lines) line.name = AddedMark + line.name;
    const MapList list = MapList::Read(task.data / "maplist" / "maplist1.hvn");
    std::set<std::string> names;
    for (int step = task.widest; step >= task.narrowest; step /= 2)
        for (const ListEntry& entry : list.Entries(step)) names.insert(entry.name);
    Progress progress("Adding", names.size());
    for (const std::string& name : names) {
        AddToMap(task, task.data / "dosmaps" / (name + ".map"), lines);
        progress.Step();
    }
}

void MakeTiles(const TilesTask& task)
{
    if (task.layer != "PB" && task.layer != "RDI" && task.layer != "RDL" && task.layer != "WB")
        throw std::runtime_error("--layer takes PB, RDI, RDL or WB");
    const std::vector<DrawnLine> lines = ReadInputs(task);
    for (const DrawnLine& line : lines)
        if (line.colour > 9) throw std::runtime_error("a tile's colours are 0 to 9");
    bool any = false;
    for (std::size_t region = 0; region < Regions.size(); ++region) {
        const std::string text = TileText(Regions[region], lines);
        if (text.empty()) continue;
        any = true;
        const std::filesystem::path file = task.data / "mapdata" / TileName(region, task.layer);
        const bool keep = task.append && std::filesystem::exists(file);
        WriteWhole(file, (keep ? ReadWhole(file) : "") + text);
        std::printf("%s: %zu bytes %s\n", file.c_str(), text.size(), keep ? "more" : "in all");
    }
    if (!any) throw std::runtime_error("no line lies in any of the 15 regions of the United States");
}

void MakePicture(const PictureTask& task)
{
    CheckName(task.name);
    const std::vector<DrawnLine> lines = ReadInputs(task);
    const Box frame = FrameFor(task, lines);
    const double shape =
        (frame.top - frame.bottom) / ((frame.left - frame.right) * Cosine((frame.top + frame.bottom) / 2));
    const int height = std::max(1, static_cast<int>(std::lround(task.width * shape)));
    const std::filesystem::path file = task.data / "bitmap" / (task.name + ".gif");
    DrawPicture(file, frame, task.width, height, lines);
    std::printf("%s: %d by %d pixels\n", file.c_str(), task.width, height);
}

} // namespace halvern::mapmaker
