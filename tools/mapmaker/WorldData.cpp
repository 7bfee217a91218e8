// SPDX-License-Identifier: GPL-3.0-or-later
#include "WorldData.h"

#include "Cells.h"
#include "Gshhg.h"
#include "Levels.h"
#include "MapFile.h"
#include "MapList.h"
#include "Output.h"
#include "Picture.h"
#include "RegionTiles.h"
#include "Sources.h"
#include "Towns.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <iterator>
#include <numbers>

namespace halvern::mapmaker {

namespace {

constexpr std::size_t MostPoints = 120000;

struct Style {
    Kind what;
    int colour;
    const char* name;
};

/// In the order of drawing: what comes later lies on top.
constexpr std::array<Style, 7> Styles{{{Kind::Grid, 1, "grid"},
                                       {Kind::County, 8, "county"},
                                       {Kind::River, 9, "river"},
                                       {Kind::Lake, 3, "lake"},
                                       {Kind::FirstLevel, 6, "state"},
                                       {Kind::Country, 7, "border"},
                                       {Kind::Coast, 11, "coast"}}};

bool Wanted(const Feature& feature, const Level& level)
{
    const double coarser = Coarseness(feature.vertices.front());
    switch (feature.what) {
    case Kind::Coast:
        return feature.area >= level.smallestIsland * coarser * coarser;
    case Kind::Lake:
        return feature.area >= level.smallestLake * coarser * coarser;
    case Kind::River:
        return feature.rank <= level.smallestRiver;
    case Kind::FirstLevel:
        return feature.area >= level.smallestState;
    case Kind::County:
        return feature.area >= level.smallestCounty;
    default:
        return true;
    }
}

/// What of `features` a level shows, simplified for it.
std::vector<Feature> FeaturesFor(const Level& level, const std::vector<Feature>& features)
{
    std::vector<Feature> shown;
    for (const Feature& feature : features)
        if (Wanted(feature, level))
            shown.push_back(
                {feature.what, feature.rank, feature.area, Simplify(feature.vertices, level.tolerance, Coarseness)});
    return shown;
}

/// Units a degree of the finest maps: whole numbers of the four decimals in which a map's corner is written.
constexpr int FineUnits = 10000;

/// What the finest level shows: shores from the source anew, to 50 m (what whole units add included) where people live,
/// and elsewhere as coarsely as the other lines.
std::vector<Feature> FinestFeatures(const Level& level, const std::vector<Feature>& features, const Towns& towns,
                                    const std::filesystem::path& shores)
{
    constexpr double NearTowns = 0.00038;
    std::vector<Feature> shown;
    std::vector<Path*> lines;
    for (Feature& shore : LoadShores(shores))
        if (Wanted(shore, level)) shown.push_back(std::move(shore));
    for (Feature& shore : shown) lines.push_back(&shore.vertices);
    const std::size_t crossings = SimplifyTogether(lines, FineUnits, [&](const Vertex& vertex) {
        return towns.Near(vertex) ? NearTowns : level.tolerance * Coarseness(vertex);
    });
    std::printf("shores that cross in the source: %zu\n", crossings);
    std::erase_if(shown, [](const Feature& shore) { return shore.vertices.size() < 2; });
    for (Feature& feature : FeaturesFor(level, features))
        if (feature.what != Kind::Coast && feature.what != Kind::Lake) shown.push_back(std::move(feature));
    return shown;
}

/// A line of the world, short enough that its bounds say whether a map needs it.
struct Stretch {
    Kind what;
    Path vertices;
    Box bounds;
};

std::vector<Stretch> Stretches(const std::vector<Feature>& features)
{
    constexpr std::size_t Longest = 300;
    std::vector<Stretch> stretches;
    for (const Feature& feature : features)
        for (Path& run : CutToRuns(feature.vertices, Longest)) {
            const Box bounds = BoundsOf(run);
            stretches.push_back({feature.what, std::move(run), bounds});
        }
    return stretches;
}

/// Parallels and meridians through a frame, each set drawn in one stroke that turns at the frame's edges.
std::vector<DrawnLine> GridLines(const Box& frame, double latStep, double lonStep)
{
    // Meridians draw together towards the poles; every second one is left out where they are half as far apart.
    const double lowest = frame.top > 0 && frame.bottom < 0 ? 0 : std::min(std::abs(frame.top), std::abs(frame.bottom));
    for (double shrink = std::cos(lowest * std::numbers::pi / 180); shrink <= 0.5; shrink *= 2) lonStep *= 2;
    const Style& style = Styles[0];
    DrawnLine parallels{style.colour, style.name, {}};
    DrawnLine meridians{style.colour, style.name, {}};
    bool forth = true;
    for (double lat = std::floor(frame.top / latStep) * latStep; lat >= frame.bottom; lat -= latStep, forth = !forth) {
        parallels.vertices.push_back({lat, forth ? frame.left : frame.right});
        parallels.vertices.push_back({lat, forth ? frame.right : frame.left});
    }
    for (double lon = std::floor(frame.left / lonStep) * lonStep; lon >= frame.right; lon -= lonStep, forth = !forth) {
        meridians.vertices.push_back({forth ? frame.top : frame.bottom, lon});
        meridians.vertices.push_back({forth ? frame.bottom : frame.top, lon});
    }
    return {parallels, meridians};
}

/// The lines of a frame in drawing order, without the grid.
std::vector<DrawnLine> LinesIn(const Box& frame, const std::vector<Stretch>& stretches, double tolerance)
{
    std::array<std::vector<DrawnLine>, Styles.size()> byStyle;
    for (const Stretch& stretch : stretches)
        for (const double turn : {-360.0, 0.0, 360.0, 720.0}) {
            const Box& at = stretch.bounds;
            if (!Touch({at.top, at.left + turn, at.bottom, at.right + turn}, frame)) continue;
            for (std::size_t i = 0; i < Styles.size(); ++i)
                if (Styles[i].what == stretch.what)
                    byStyle[i].push_back(
                        {Styles[i].colour, Styles[i].name,
                         tolerance > 0 ? Simplify(stretch.vertices, tolerance, Coarseness) : stretch.vertices});
            break; // clipping looks at every turn by itself
        }
    std::vector<DrawnLine> lines;
    for (std::vector<DrawnLine>& set : byStyle) std::move(set.begin(), set.end(), std::back_inserter(lines));
    return lines;
}

struct Totals {
    std::size_t files = 0;
    std::size_t points = 0;
    std::size_t mostPoints = 0;
    std::size_t bytes = 0;

    void Count(const MapFigures& figures)
    {
        ++files;
        points += figures.points;
        mostPoints = std::max(mostPoints, figures.points);
        bytes += figures.bytes;
    }
};

void Print(const char* name, const Totals& totals)
{
    std::printf("%-12s %5zu files %9zu points, at most %6zu, %9zu bytes\n", name, totals.files, totals.points,
                totals.mostPoints, totals.bytes);
    std::fflush(stdout);
}

/// Writes one map; lines are thinned out until the map has no more points than a redraw should take.
MapFigures WriteFitting(const std::filesystem::path& file, const MapPlan& plan, const std::vector<DrawnLine>& grid,
                        const std::vector<Stretch>& stretches, double tolerance)
{
    for (double thinner = 0;; thinner = thinner == 0 ? tolerance * 1.3 : thinner * 1.3) {
        std::vector<DrawnLine> lines = grid;
        for (DrawnLine& line : LinesIn(plan.frame, stretches, thinner)) lines.push_back(std::move(line));
        const MapFigures figures = WriteMap(file, plan, lines);
        if (figures.points <= MostPoints) return figures;
    }
}

/// South of this the finer levels have no maps of their own: the sea's map shows the coast of Antarctica.
constexpr double Antarctic = -60;

bool IsSea(const Level& level, const Cell& cell, const std::vector<Stretch>& stretches)
{
    if (level.seaGridLat == 0) return false;
    return cell.centre.lat < Antarctic || LinesIn(cell.frame, stretches, 0).empty();
}

/// The map of bare grid that serves every cell of open sea, and Antarctica.
MapFigures WriteSea(const Level& level, const std::vector<Stretch>& stretches, const std::filesystem::path& file)
{
    constexpr double CoastTolerance = 0.01; // a third of what it comes to in the polar seas
    constexpr int Units = 240;
    const double side = 180 + level.cellLon / 2 + SideMargin(level.widest, 90);
    const Box globe{90, side, -90, -side};
    std::vector<DrawnLine> lines = GridLines(globe, level.seaGridLat, level.seaGridLon);
    for (DrawnLine& line : LinesIn({Antarctic, side, -90, -side}, stretches, CoastTolerance))
        lines.push_back(std::move(line));
    return WriteMap(file, {BodyFormat::Ascii, globe, Units, level.widest, level.narrowest}, lines);
}

/// Whether a frame holds shores that are drawn finely.
bool HasFineShores(const Towns* towns, const Box& frame, const std::vector<Stretch>& stretches)
{
    if (towns == nullptr) return false;
    for (const Stretch& stretch : stretches)
        for (const double turn : {-360.0, 0.0, 360.0, 720.0}) {
            const Box& at = stretch.bounds;
            if ((stretch.what != Kind::Coast && stretch.what != Kind::Lake) ||
                !Touch({at.top, at.left + turn, at.bottom, at.right + turn}, frame))
                continue;
            for (const Vertex& vertex : stretch.vertices)
                if (frame.Holds({vertex.lat, vertex.lon + turn}) && towns->Near(vertex)) return true;
        }
    return false;
}

/// LineFormat where it is fine enough.
MapPlan PlanFor(const Level& level, const Box& frame, const Towns* towns, const std::vector<Stretch>& stretches)
{
    if (HasFineShores(towns, frame, stretches))
        return {BodyFormat::Ascii, frame, FineUnits, level.widest, level.narrowest};
    const bool packed = LineFormatScale(frame) >= std::max(1, level.unitsPerDegree);
    return {packed ? BodyFormat::LineFormat : BodyFormat::Ascii, frame, level.unitsPerDegree, level.widest,
            level.narrowest};
}

/// @param towns  near which shores are fine; none at the coarser levels
void MakeLevel(const Level& level, const std::vector<Feature>& features, const Towns* towns,
               const std::filesystem::path& maps, MapList& list)
{
    const std::vector<Stretch> stretches = Stretches(features);
    const std::string title = std::to_string(level.widest) + " to " + std::to_string(level.narrowest);
    const std::string seaName = std::string(1, level.letter) + "sea";
    const std::vector<Cell> cells = LayCells(level);
    Progress progress("Maps for " + title, cells.size());
    Totals totals;
    bool seaUsed = false;
    for (const Cell& cell : cells) {
        const bool sea = IsSea(level, cell, stretches);
        seaUsed = seaUsed || sea;
        if (!sea)
            totals.Count(WriteFitting(maps / (cell.name + ".map"), PlanFor(level, cell.frame, towns, stretches),
                                      GridLines(cell.frame, level.gridLat, level.gridLon), stretches, level.tolerance));
        for (int step = level.widest; step >= level.narrowest; step /= 2)
            list.Add(step, {sea ? seaName : cell.name, cell.centre.lat, cell.centre.lon});
        progress.Step();
    }
    if (seaUsed) totals.Count(WriteSea(level, stretches, maps / (seaName + ".map")));
    Print(title.c_str(), totals);
}

void MakeSingle(const SingleMap& map, const std::vector<Feature>& features, const std::filesystem::path& maps)
{
    const MapPlan plan{BodyFormat::Ascii, map.frame, map.lines.unitsPerDegree, map.lines.widest, map.lines.narrowest};
    Totals totals;
    totals.Count(WriteFitting(maps / map.file, plan, GridLines(map.frame, map.lines.gridLat, map.lines.gridLon),
                              Stretches(FeaturesFor(map.lines, features)), map.lines.tolerance));
    Print(map.file, totals);
}

/// The picture that ships as an example of a bitmap map: the United States and what surrounds them.
void MakeSamplePicture(const std::vector<Feature>& features, const std::filesystem::path& folder)
{
    // As wide for its height as the map's window: a picture fits exactly only in a window of its own shape.
    constexpr Box Frame{54, 126, 19, 65};
    constexpr int Width = 1240;
    constexpr int Height = 900;
    const Level& look = Levels[1];
    std::vector<DrawnLine> lines = GridLines(Frame, look.gridLat, look.gridLon);
    for (DrawnLine& line : LinesIn(Frame, Stretches(FeaturesFor(look, features)), 0)) lines.push_back(std::move(line));
    DrawPicture(folder / "usa.gif", Frame, Width, Height, lines);
}

} // namespace

void MakeWorld(const WorldSources& sources, const std::filesystem::path& data)
{
    std::vector<Feature> features = LoadSources(sources, Levels.back().tolerance);
    const Towns towns(data / "places" / "places.dat");
    const std::filesystem::path maps = data / "dosmaps";
    MakeRegionTiles(features, data / "mapdata");
    MakeSamplePicture(features, data / "bitmap");
    MapList list;
    // From the finest level to the coarsest: each is drawn from the lines of the one before.
    for (auto level = Levels.rbegin(); level != Levels.rend(); ++level) {
        if (level == Levels.rbegin())
            MakeLevel(*level, FinestFeatures(*level, features, towns, sources.gshhg / "binned_GSHHS_f.nc"), &towns,
                      maps, list);
        else
            MakeLevel(*level, FeaturesFor(*level, features), nullptr, maps, list);
        for (Feature& feature : features) feature.vertices = Simplify(feature.vertices, level->tolerance, Coarseness);
    }
    for (const SingleMap& map : SingleMaps) MakeSingle(map, features, maps);
    list.Add(ListSteps[0], {"globe", 0, 0});
    list.Write(data / "maplist" / "maplist1.hvn");
}

} // namespace halvern::mapmaker
