// SPDX-License-Identifier: GPL-3.0-or-later
#include "Commands.h"

#include "MapList.h"
#include "Output.h"
#include "Picture.h"
#include "RegionTiles.h"
#include "VectorFile.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <iterator>
#include <numbers>
#include <regex>
#include <set>
#include <stdexcept>

namespace halvern::mapmaker {

namespace {

constexpr std::size_t CalmPoints = 120000;

double Cosine(double lat)
{
    return std::cos(lat * std::numbers::pi / 180);
}

Rules RulesOf(const Task& task)
{
    if (task.rules.empty()) return Rules(task.colour);
    const std::string text = ReadWhole(task.rules);
    try {
        return Rules::Parse(text);
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(task.rules.string() + ": " + error.what());
    }
}

std::vector<DrawnLine> ReadInputs(const Task& task)
{
    if (task.inputs.empty()) throw std::runtime_error("no vector file is named; --help tells how");
    if (!std::filesystem::is_directory(task.data))
        throw std::runtime_error(task.data.string() +
                                 ": there is no such folder; --data names the one that holds dosmaps, "
                                 "maplist and the others");
    const Rules rules = RulesOf(task);
    std::vector<DrawnLine> lines;
    for (const std::filesystem::path& input : task.inputs) {
        std::vector<DrawnLine> more = ReadVectorFile(input, rules);
        std::move(more.begin(), more.end(), std::back_inserter(lines));
    }
    for (DrawnLine& line : lines)
        if (task.tolerance > 0) line.vertices = Simplify(line.vertices, task.tolerance);
    if (lines.empty())
        throw std::runtime_error("the vector files hold no line that the rules let through; points aren't drawn");
    return lines;
}

/// The frame that was named, or the one that the lines fill.
Box FrameFor(const Task& task, const std::vector<DrawnLine>& lines)
{
    if (task.frame.top > task.frame.bottom) {
        if (std::all_of(lines.begin(), lines.end(),
                        [&](const DrawnLine& line) { return Clip(line.vertices, task.frame).empty(); }))
            throw std::runtime_error("--box: no line lies in it");
        return task.frame;
    }
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

std::string SlowNote(const MapFigures& figures)
{
    if (figures.points <= CalmPoints) return "";
    return "note: a map of more than " + std::to_string(CalmPoints) +
           " points draws slowly; --tolerance thins it out\n";
}

/// A name in small letters, so that no two differ by their letters' size only. Throws when it won't do for a file of
/// at most `most` characters.
std::string CheckedName(std::string name, std::size_t most)
{
    std::transform(name.begin(), name.end(), name.begin(), [](unsigned char c) { return std::tolower(c); });
    const bool plain = std::all_of(name.begin(), name.end(), [](unsigned char c) {
        return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '_';
    });
    if (name.empty() || name.size() > most || !plain)
        throw std::runtime_error("--name takes 1 to " + std::to_string(most) + " letters, digits, - or _");
    return name;
}

/// Throws when a map of this name comes with the program: a new one in its place would leave a hole in the globe.
void CheckNotShipped(const std::string& name)
{
    static const std::regex shipped("world|globe|usa|[a-e](sea|[0-9]{2}[ns][0-9]{3}[ew])");
    if (std::regex_match(name, shipped))
        throw std::runtime_error("--name " + name + ": a map that comes with Halvern has this name; take another one");
}

/// The name of the map that the list gives for a centre: the first of the nearest.
const ListEntry& Nearest(const std::vector<ListEntry>& entries, double lat, double lon)
{
    return *std::min_element(entries.begin(), entries.end(), [&](const ListEntry& one, const ListEntry& other) {
        return std::hypot(one.lat - lat, one.lon - lon) < std::hypot(other.lat - lat, other.lon - lon);
    });
}

constexpr int NeverChosen = -1;

/// How many of a hundred views that choose the map at a step lie within it. Views are tried as far around as the list
/// gives this map. NeverChosen: none of them chooses it.
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
    return chosen == 0 ? NeverChosen : covered * 100 / chosen;
}

std::filesystem::path ListFile(const Task& task)
{
    return task.data / "maplist" / "maplist1.hvn";
}

void Enlist(const LinesTask& task, const std::string& name, const Box& frame, MapList list)
{
    list.Remove(name);
    int leastShare = 100;
    for (int step = task.widest; step >= task.narrowest; step /= 2) {
        list.Add(step, {name, (frame.top + frame.bottom) / 2, (frame.left + frame.right) / 2});
        leastShare = std::min(leastShare, CoveredShare(list.Entries(step), name, frame, step));
    }
    if (leastShare == NeverChosen)
        std::printf(
            "note: at one of the steps no view will choose this map: another one has the same centre, and stands\n"
            "      before it in the list. A box a little to the side mends that\n");
    else if (leastShare < 90)
        std::printf(
            "note: of 100 views that will choose this map, as the nearest, only %d lie within it; the others are "
            "empty\n"
            "      beyond its edge. A larger --box mends that, or the command add, which puts the lines into the\n"
            "      maps that are there\n",
            leastShare);
    list.Write(ListFile(task));
    std::printf("%s: %s is entered for steps %d to %d\n", ListFile(task).c_str(), name.c_str(), task.widest,
                task.narrowest);
}

/// Marks the names of lines that were added to a map, so that they can be taken out again.
const std::string AddedMark = "+";

/// Puts those lines that a map's frame holds behind its own. The map becomes one of ASCII, which keeps their precision.
/// Returns what to tell of it, empty when the map stays as it is.
std::string AddToMap(const AddTask& task, const std::filesystem::path& file, const std::vector<DrawnLine>& lines)
{
    MapContent map;
    try {
        map = ReadMap(file);
    } catch (const std::runtime_error& error) {
        return std::string("note: ") + error.what() + "; it is left as it is\n";
    }
    constexpr double Globe = 300;
    if (map.plan.frame.left - map.plan.frame.right > Globe) return ""; // shared by cells far apart
    const std::size_t own = map.lines.size();
    if (!task.append) std::erase_if(map.lines, [](const DrawnLine& line) { return line.name.starts_with(AddedMark); });
    const std::size_t kept = map.lines.size();
    for (const DrawnLine& line : lines)
        if (!Clip(line.vertices, map.plan.frame).empty()) map.lines.push_back(line);
    if (map.lines.size() == kept && kept == own) return "";
    map.plan.format = BodyFormat::Ascii;
    map.plan.unitsPerDegree = std::max(map.plan.unitsPerDegree, task.unitsPerDegree);
    const MapFigures figures = WriteMap(file, map.plan, map.lines);
    return file.string() + ": " + std::to_string(own - kept) + " lines taken out, " +
           std::to_string(map.lines.size() - kept) + " added, " + std::to_string(figures.points) + " points in all\n" +
           SlowNote(figures);
}

} // namespace

void MakeLines(const LinesTask& task)
{
    const std::string name = CheckedName(task.name, 8);
    CheckNotShipped(name);
    const std::vector<DrawnLine> lines = ReadInputs(task);
    const MapList list = task.widest > 0 ? MapList::Read(ListFile(task)) : MapList();
    const MapPlan plan{task.format, FrameFor(task, lines), task.unitsPerDegree, task.widest, task.narrowest};
    const std::filesystem::path file = task.data / "dosmaps" / (name + ".map");
    const MapFigures figures = WriteMap(file, plan, lines);
    std::printf("%s: %zu points, %zu bytes\n%s", file.c_str(), figures.points, figures.bytes,
                SlowNote(figures).c_str());
    if (task.widest > 0) Enlist(task, name, plan.frame, list);
}

void RemoveMap(const Task& task, const std::string& given)
{
    const std::string name = CheckedName(given, 8);
    CheckNotShipped(name);
    MapList list = MapList::Read(ListFile(task));
    const std::filesystem::path file = task.data / "dosmaps" / (name + ".map");
    const std::size_t entries = list.Remove(name);
    if (entries > 0) list.Write(ListFile(task));
    std::error_code error;
    const bool gone = std::filesystem::remove(file, error);
    if (error) throw std::runtime_error(file.string() + ": can't be removed: " + error.message());
    if (!gone && entries == 0) throw std::runtime_error("--name " + name + ": there is no such map");
    std::printf("%s is removed, and %zu entries of the map list\n", file.c_str(), entries);
}

void AddToMaps(const AddTask& task)
{
    std::vector<DrawnLine> lines = task.remove ? std::vector<DrawnLine>() : ReadInputs(task);
    for (DrawnLine& line : lines) line.name = AddedMark + line.name;
    const MapList list = MapList::Read(ListFile(task));
    std::set<std::string> names;
    for (int step = task.widest; step >= task.narrowest; step /= 2)
        for (const ListEntry& entry : list.Entries(step)) names.insert(entry.name);
    std::string report;
    {
        Progress progress(task.remove ? "Removing" : "Adding", names.size());
        for (const std::string& name : names) {
            report += AddToMap(task, task.data / "dosmaps" / (name + ".map"), lines);
            progress.Step();
        }
    }
    if (report.empty() && task.remove) throw std::runtime_error("no map of these steps holds lines from add");
    if (report.empty())
        throw std::runtime_error(
            "the lines touch none of these steps' maps. Where there is only sea the cells share a map, "
            "which takes no lines: make a map of your own there, with the command lines");
    std::fputs(report.c_str(), stdout);
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
    constexpr std::size_t LongestName = 40;
    constexpr double Highest = 10000;
    const std::string name = CheckedName(task.name, LongestName);
    const std::vector<DrawnLine> lines = ReadInputs(task);
    const Box frame = FrameFor(task, lines);
    const double shape =
        (frame.top - frame.bottom) / ((frame.left - frame.right) * Cosine((frame.top + frame.bottom) / 2));
    if (!(task.width * shape <= Highest))
        throw std::runtime_error(
            "--box: the picture would be more than 10000 pixels high; a wider box or a smaller --width "
            "mends that");
    const int height = std::max(1, static_cast<int>(std::lround(task.width * shape)));
    const std::filesystem::path file = task.data / "bitmap" / (name + ".gif");
    DrawPicture(file, frame, task.width, height, lines);
    std::printf("%s: %d by %d pixels\n", file.c_str(), task.width, height);
}

} // namespace halvern::mapmaker
