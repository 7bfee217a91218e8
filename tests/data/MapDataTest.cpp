// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/DosMapFile.h"
#include "mapmaker/MapFile.h"
#include "mapmaker/MapList.h"
#include "mapmaker/Output.h"
#include "support/Crossings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <map>
#include <numbers>
#include <random>
#include <sstream>

namespace {

using namespace halvern::mapmaker;

const std::string Data = HALVERN_SOURCE "/data";

/// All shipped maps by name, read once.
const std::map<std::string, MapContent>& Maps()
{
    static const std::map<std::string, MapContent> maps = [] {
        std::map<std::string, MapContent> all;
        for (const auto& file : std::filesystem::directory_iterator(Data + "/dosmaps"))
            all[file.path().stem().string()] = ReadMap(file);
        return all;
    }();
    return maps;
}

const std::string& ListBytes()
{
    static const std::string bytes = ReadWhole(Data + "/maplist/maplist1.hvn");
    return bytes;
}

/// The map that the program chooses for a view.
const MapContent& Chosen(std::size_t row, const Vertex& centre)
{
    return Maps().at(halvern::NearestMap(ListBytes(), static_cast<int>(row) + 1, static_cast<float>(centre.lat),
                                         static_cast<float>(centre.lon)));
}

/// Half the height and width in degrees of a view.
Vertex HalfView(double range, double lat)
{
    return {range / 60, range * 4 / (std::cos(lat * 3.1416 / 180) * 3 * 60)};
}

/// Whether some stretch of a line crosses the view.
bool ShowsSomething(const MapContent& map, const Vertex& centre, const Vertex& half)
{
    const Box view{centre.lat + half.lat, centre.lon + half.lon, centre.lat - half.lat, centre.lon - half.lon};
    return std::ranges::any_of(map.lines, [&](const DrawnLine& line) { return !Clip(line.vertices, view).empty(); });
}

/// Gives places in those one-degree cells of the globe that hold land, evenly over the ground.
class LandPlaces {
public:
    LandPlaces()
    {
        std::istringstream text(ReadWhole(HALVERN_SOURCE "/tests/data/land-cells.txt"));
        for (std::string row; std::getline(text, row);) rows_.push_back(row);
    }

    Vertex Next()
    {
        for (;;) {
            const double lat = std::asin(std::uniform_real_distribution(-1.0, 1.0)(random_)) * 180 / std::numbers::pi;
            const double lon = std::uniform_real_distribution(-180.0, 180.0)(random_);
            const auto row = static_cast<std::size_t>(90 - lat);
            const auto column = static_cast<std::size_t>(180 - lon);
            const int digit =
                std::stoi(rows_.at(std::min<std::size_t>(row, 179)).substr(column / 4 % 90, 1), nullptr, 16);
            if (digit >> (3 - column % 4) & 1) return {lat, lon};
        }
    }

private:
    std::vector<std::string> rows_;
    std::mt19937 random_{20240229};
};

TEST(MapData, EveryMapIsReadAndDrawnQuickly)
{
    ASSERT_GT(Maps().size(), 100u);
    int packed = 0;
    for (const auto& [name, map] : Maps()) {
        EXPECT_LE(name.size(), 8u) << name;
        packed += map.plan.format == BodyFormat::LineFormat;
        std::size_t points = 0;
        for (const auto& line : map.lines) {
            EXPECT_GT(line.vertices.size(), 1u) << name;
            points += line.vertices.size();
        }
        EXPECT_LE(points, 120000u) << name;
    }
    EXPECT_GT(packed, 0);
    EXPECT_LT(packed, static_cast<int>(Maps().size()));
}

// A checkout, an archive and a package each carry it: fine shores and names are worth 45 megabytes, not more.
TEST(MapData, AllOfItStaysSmall)
{
    std::uintmax_t bytes = 0;
    for (const auto& file : std::filesystem::recursive_directory_iterator(Data))
        if (file.is_regular_file()) bytes += file.file_size();
    EXPECT_LE(bytes, 45'000'000u);
}

TEST(MapData, TheChosenMapCoversTheViewWhereverLandIsAndShowsSomething)
{
    constexpr int tries = 3000, looks = 300;
    LandPlaces places;
    for (std::size_t row = 0; row < ListSteps.size(); ++row) {
        int outside = 0, empty = 0;
        for (int i = 0; i < tries; ++i) {
            const Vertex centre = places.Next();
            const auto& map = Chosen(row, centre);
            const auto& frame = map.plan.frame;
            Vertex half = HalfView(ListSteps[row], centre.lat);
            if (i < looks && !ShowsSomething(map, centre, half)) ++empty;
            // Half a turn to either side is all there is; nearer the poles than 80 degrees a map goes so far as it can.
            half.lon = std::min(half.lon, std::abs(centre.lat) > 80 ? 60.0 : 180.0);
            if (frame.top < std::min(90.0, centre.lat + half.lat) - 0.001 ||
                frame.bottom > std::max(-90.0, centre.lat - half.lat) || frame.left < centre.lon + half.lon - 0.001 ||
                frame.right > centre.lon - half.lon)
                ++outside;
        }
        EXPECT_EQ(outside, 0) << "of " << tries << " views at step " << ListSteps[row];
        EXPECT_EQ(empty, 0) << "of " << looks << " views at step " << ListSteps[row];
    }
}

TEST(MapData, ShoresNearTownsAreFineAndDoNotCross)
{
    constexpr std::size_t NarrowestRow = 11;
    for (const auto& town : {Vertex{40.71, 74}, {47.62, 122.36}, {59.33, -18.1}, {22.3, -114.17}, {-33.86, -151.21}}) {
        const auto& map = Chosen(NarrowestRow, town);
        ASSERT_EQ(map.plan.format, BodyFormat::Ascii) << town.lat;
        std::vector<Path> shores;
        for (const auto& line : map.lines)
            if (line.name == "coast" || line.name == "lake") shores.push_back(line.vertices);
        EXPECT_EQ(halvern::test::Crossings(shores, map.plan.unitsPerDegree), 0) << town.lat;
        // Within ten miles a shore of this detail has hundreds of stretches, most of them shorter than 300 m.
        const Box near{town.lat + 0.17, town.lon + 0.2, town.lat - 0.17, town.lon - 0.2};
        int stretches = 0, brief = 0;
        for (const auto& shore : shores)
            for (std::size_t i = 1; i < shore.size(); ++i)
                if (near.Holds(shore[i])) {
                    ++stretches;
                    brief += std::hypot(shore[i].lat - shore[i - 1].lat, shore[i].lon - shore[i - 1].lon) < 0.004;
                }
        EXPECT_GT(stretches, 400) << town.lat;
        EXPECT_GT(brief, stretches / 2) << town.lat;
    }
}

} // namespace
