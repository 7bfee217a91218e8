// SPDX-License-Identifier: GPL-3.0-or-later
#include "RegionTiles.h"

#include "Output.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace halvern::mapmaker {

const std::array<Box, 15> Regions{{
    {47.4603, 81.9989, 40.4831, 66.8825},
    {42.8194, 84.8203, 36.5414, 73.8867},
    {36.5922, 85.6089, 30.3583, 75.4511},
    {31.0047, 87.6261, 24.5439, 80.0239},
    {36.6825, 94.6103, 28.9292, 81.6497},
    {43.5081, 96.6406, 35.9917, 81.9531},
    {49.41, 97.2331, 41.6964, 81.9867},
    {33.0139, 106.0, 25.0, 93.0},
    {37.0033, 103.0, 32.5133, 94.0},
    {43.01, 109.0, 34.9886, 94.0},
    {49.0078, 112.0, 40.9936, 96.0},
    {37.0075, 115.0, 31.3328, 102.9894},
    {35.8039, 121.3378, 32.5314, 114.1156},
    {42.0094, 124.3925, 34.9958, 109.0289},
    {49.2336, 124.8208, 41.9817, 111.0261},
}};

namespace {

/// Which kinds a layer shows, in which colour.
struct LayerRow {
    const char* layer;
    Kind what;
    int colour;
};

constexpr std::array<LayerRow, 9> Layers{{
    {"PB", Kind::County, 8},
    {"PB", Kind::FirstLevel, 6},
    {"PB", Kind::Country, 6},
    {"RDI", Kind::FirstLevel, 6},
    {"RDI", Kind::Country, 6},
    {"RDL", Kind::County, 8},
    {"WB", Kind::River, 9},
    {"WB", Kind::Lake, 9},
    {"WB", Kind::Coast, 3},
}};

constexpr int SmallestRiver = 2;
constexpr double SmallestWater = 4; // square kilometres
constexpr double Tolerance = 0.0066;

std::string Point(const Vertex& vertex)
{
    char text[48];
    std::snprintf(text, sizeof text, "%07ld%c%06ld%c", std::lround(std::abs(vertex.lon) * 10000),
                  vertex.lon < 0 ? 'E' : 'W', std::lround(std::abs(vertex.lat) * 10000), vertex.lat < 0 ? 'S' : 'N');
    return text;
}

bool Wanted(const Feature& feature)
{
    if (feature.what == Kind::River) return feature.rank <= SmallestRiver;
    return (feature.what != Kind::Lake && feature.what != Kind::Coast) || feature.area >= SmallestWater;
}

} // namespace

std::string TileName(std::size_t region, const std::string& layer)
{
    char text[24];
    std::snprintf(text, sizeof text, "S%02zu_%s.GRF", region + 1, layer.c_str());
    return text;
}

std::string TileText(const Box& region, const std::vector<DrawnLine>& lines)
{
    constexpr double Farthest = 0.15;
    constexpr std::size_t LongestRow = 40;
    std::string text;
    for (const DrawnLine& line : lines)
        for (const Path& piece : Clip(line.vertices, region))
            for (const Path& run : CutToRuns(Densify(piece, Farthest), LongestRow)) {
                text += std::to_string(line.colour);
                for (const Vertex& vertex : run) text += Point(vertex);
                text += "\n";
            }
    return text;
}

void MakeRegionTiles(const std::vector<Feature>& features, const std::filesystem::path& folder)
{
    std::vector<Feature> shown;
    for (const Feature& feature : features)
        if (Wanted(feature))
            shown.push_back(
                {feature.what, feature.rank, feature.area, Simplify(feature.vertices, Tolerance, Coarseness)});
    Progress progress("Region tiles", Regions.size());
    std::size_t bytes = 0;
    for (std::size_t region = 0; region < Regions.size(); ++region) {
        for (const char* layer : {"PB", "RDI", "RDL", "WB"}) {
            std::vector<DrawnLine> lines;
            for (const LayerRow& row : Layers)
                for (const Feature& feature : shown)
                    if (std::string(row.layer) == layer && row.what == feature.what)
                        lines.push_back({row.colour, "", feature.vertices});
            const std::string text = TileText(Regions[region], lines);
            WriteWhole(folder / TileName(region, layer), text);
            bytes += text.size();
        }
        progress.Step();
    }
    std::printf("%-12s %5zu files %9zu bytes\n", "tiles", Regions.size() * 4, bytes);
}

} // namespace halvern::mapmaker
