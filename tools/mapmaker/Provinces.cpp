// SPDX-License-Identifier: GPL-3.0-or-later
#include "Provinces.h"

#include <ogrsf_frmts.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <memory>
#include <numbers>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>

namespace halvern::mapmaker {

namespace {

/// Whose first-level borders come from GSHHG, or in the United States from the Census Bureau, complete and in more
/// detail.
constexpr std::array<std::string_view, 17> HaveBetter{"Argentina",
                                                      "Australia",
                                                      "Belize",
                                                      "Bolivia",
                                                      "Brazil",
                                                      "Canada",
                                                      "Colombia",
                                                      "Costa Rica",
                                                      "El Salvador",
                                                      "Guatemala",
                                                      "Honduras",
                                                      "Jamaica",
                                                      "Mexico",
                                                      "Peru",
                                                      "Uruguay",
                                                      "Venezuela",
                                                      "United States of America"};

/// Areas of a country that are smaller than this, on the mean, are like counties. Square kilometres.
constexpr double CountySize = 3000;

/// Degrees by which the source itself is off, about.
constexpr double Precision = 0.006;

struct Closer {
    void operator()(GDALDataset* dataset) const { GDALClose(dataset); }
};

/// What the areas of one country add up to.
struct Country {
    double size = 0; ///< square kilometres
    int areas = 0;
};

/// A vertex that can be compared.
using Place = std::pair<long, long>;

Place PlaceOf(const Vertex& vertex)
{
    return {std::lround(vertex.lat * 1e6), std::lround(vertex.lon * 1e6)};
}

/// The stretch between two neighbouring vertices of a ring, whichever way it is walked.
using Stretch = std::pair<Place, Place>;

Stretch StretchOf(const Vertex& from, const Vertex& to)
{
    return std::minmax({PlaceOf(from), PlaceOf(to)});
}

struct Ring {
    int country = 0;
    Path vertices;
};

double SquareKilometres(const OGRPolygon& polygon)
{
    constexpr double Degree = 111.2;
    OGREnvelope bounds;
    polygon.getEnvelope(&bounds);
    return polygon.get_Area() * Degree * Degree * std::cos((bounds.MinY + bounds.MaxY) / 2 * std::numbers::pi / 180);
}

/// All areas of the layer, sorted by country.
class Areas {
public:
    explicit Areas(const std::filesystem::path& file)
    {
        GDALAllRegister();
        const std::unique_ptr<GDALDataset, Closer> dataset(
            GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY));
        OGRLayer* layer = dataset ? dataset->GetLayerByName("states_provinces") : nullptr;
        if (!layer) throw std::runtime_error(file.string() + ": has no layer \"states_provinces\"");
        for (const auto& feature : *layer) {
            const std::string name = feature->GetFieldAsString("admin");
            const OGRGeometry* geometry = feature->GetGeometryRef();
            if (!geometry || std::find(HaveBetter.begin(), HaveBetter.end(), name) != HaveBetter.end()) continue;
            const int number = numbers_.try_emplace(name, static_cast<int>(countries.size())).first->second;
            countries.resize(numbers_.size());
            ++countries[static_cast<std::size_t>(number)].areas;
            Add(*geometry, number);
        }
    }

    std::vector<Country> countries;
    std::vector<Ring> rings;

private:
    void Add(const OGRGeometry& geometry, int country)
    {
        if (wkbFlatten(geometry.getGeometryType()) == wkbMultiPolygon) {
            for (const OGRPolygon* part : *geometry.toMultiPolygon()) Add(*part, country);
        } else if (wkbFlatten(geometry.getGeometryType()) == wkbPolygon) {
            countries[static_cast<std::size_t>(country)].size += SquareKilometres(*geometry.toPolygon());
            for (const OGRLinearRing* ring : *geometry.toPolygon()) {
                rings.push_back({country, {}});
                for (const OGRPoint& point : *ring) rings.back().vertices.push_back({point.getY(), -point.getX()});
            }
        }
    }

    std::map<std::string, int> numbers_;
};

/// How many different stretches end at each place.
std::map<Place, int> Degrees(const std::vector<Ring>& rings)
{
    std::set<Stretch> seen;
    std::map<Place, int> degrees;
    for (const Ring& ring : rings)
        for (std::size_t i = 1; i < ring.vertices.size(); ++i) {
            const Stretch stretch = StretchOf(ring.vertices[i - 1], ring.vertices[i]);
            if (!seen.insert(stretch).second) continue;
            ++degrees[stretch.first];
            ++degrees[stretch.second];
        }
    return degrees;
}

/// The runs of stretches that two areas of the same country share, each once and cut where several meet.
std::vector<KeyedPath> Shared(const std::vector<Ring>& rings)
{
    const std::map<Place, int> degrees = Degrees(rings);
    std::map<Stretch, int> firstUser;
    std::vector<KeyedPath> runs;
    for (const Ring& ring : rings) {
        bool open = false;
        for (std::size_t i = 1; i < ring.vertices.size(); ++i) {
            const Vertex& from = ring.vertices[i - 1];
            const Vertex& to = ring.vertices[i];
            const auto [user, isFirst] = firstUser.try_emplace(StretchOf(from, to), ring.country);
            const bool shared = !isFirst && user->second == ring.country;
            if (shared && !open) runs.push_back({ring.country, {from}});
            if (shared) runs.back().vertices.push_back(to);
            open = shared && degrees.at(PlaceOf(to)) == 2;
        }
    }
    return runs;
}

} // namespace

Provinces LoadProvinces(const std::filesystem::path& file)
{
    Areas areas(file);
    Provinces provinces;
    for (KeyedPath& path : JoinEnds(Shared(areas.rings))) {
        const Country& country = areas.countries[static_cast<std::size_t>(path.key)];
        const double mean = country.size / country.areas;
        provinces.borders.push_back({mean < CountySize ? Kind::County : Kind::FirstLevel, 0, mean,
                                     Simplify(path.vertices, Precision, Coarseness)});
    }
    for (Ring& ring : areas.rings) provinces.rings.push_back(std::move(ring.vertices));
    return provinces;
}

} // namespace halvern::mapmaker
