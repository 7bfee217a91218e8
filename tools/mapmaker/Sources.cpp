// SPDX-License-Identifier: GPL-3.0-or-later
#include "Sources.h"

#include "Gshhg.h"
#include "Output.h"
#include "Provinces.h"
#include "Topology.h"

#include <iterator>

namespace halvern::mapmaker {

namespace {

/// Mean square kilometres of the areas that first-level borders and counties part, where the source doesn't tell.
constexpr double StateSize = 150000;
constexpr double CountySize = 2500;

/// GSHHG draws state borders on the open water of these lakes as scattered dashes; no other first-level border is here.
constexpr Box GreatLakes{49, 92.5, 41, 80};

/// The parts of a first-level border that lie outside an area and the Great Lakes, cut at its vertices.
std::vector<Feature> Outside(const Feature& feature, const Area& area)
{
    std::vector<Feature> parts;
    Path part;
    const auto finish = [&] {
        if (part.size() > 1) parts.push_back({feature.what, feature.rank, StateSize, part});
        part.clear();
    };
    for (const Vertex& vertex : feature.vertices) {
        // The source counts longitudes eastward from 0, the area's are within half a turn.
        const Vertex turned{vertex.lat, vertex.lon < -180 ? vertex.lon + 360 : vertex.lon};
        if (area.Holds(turned) || GreatLakes.Holds(turned))
            finish();
        else
            part.push_back(vertex);
    }
    finish();
    return parts;
}

/// Adds the borders, first-level ones only outside the countries that another source draws.
void AddBorders(const std::vector<Feature>& borders, const Area& elsewhere, std::vector<Feature>& all)
{
    for (const Feature& border : borders) {
        if (border.what != Kind::FirstLevel) {
            all.push_back(border);
            continue;
        }
        std::vector<Feature> parts = Outside(border, elsewhere);
        std::move(parts.begin(), parts.end(), std::back_inserter(all));
    }
}

void AddCounties(const Topology& counties, std::vector<Feature>& all)
{
    const std::set<std::size_t> states = counties.SharedArcs("states");
    std::vector<KeyedPath> pieces;
    for (const std::size_t arc : counties.SharedArcs("counties"))
        pieces.push_back({states.contains(arc) ? 1 : 0, counties.Arc(arc)});
    for (KeyedPath& path : JoinEnds(std::move(pieces)))
        all.push_back({path.key == 1 ? Kind::FirstLevel : Kind::County, 0, path.key == 1 ? StateSize : CountySize,
                       std::move(path.vertices)});
}

} // namespace

std::vector<Feature> LoadSources(const WorldSources& sources, double tolerance)
{
    Progress progress("Reading the sources", 6);
    const Topology counties(sources.usAtlas / "counties-10m.json");
    progress.Step();
    std::vector<Feature> all = LoadShores(sources.gshhg / "binned_GSHHS_f.nc");
    progress.Step();
    std::vector<Feature> rivers = LoadRivers(sources.gshhg / "binned_river_f.nc");
    std::move(rivers.begin(), rivers.end(), std::back_inserter(all));
    progress.Step();
    Provinces provinces = LoadProvinces(sources.provinces);
    std::vector<Path> drawn = counties.Rings("nation");
    std::move(provinces.rings.begin(), provinces.rings.end(), std::back_inserter(drawn));
    progress.Step();
    AddBorders(LoadBorders(sources.gshhg / "binned_border_f.nc"), Area(drawn), all);
    AddCounties(counties, all);
    std::move(provinces.borders.begin(), provinces.borders.end(), std::back_inserter(all));
    progress.Step();
    for (Feature& feature : all) feature.vertices = Simplify(feature.vertices, tolerance, Coarseness);
    progress.Step();
    return all;
}

} // namespace halvern::mapmaker
