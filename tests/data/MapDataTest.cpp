// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/ShippedMaps.h"

#include "map/DosMapFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <numbers>
#include <random>
#include <set>
#include <sstream>

namespace {

using namespace shipped;

const std::string Data = HALVERN_SOURCE "/data";

/// All shipped maps by name, read once.
const std::map<std::string, Map>& Maps()
{
    static const std::map<std::string, Map> maps = [] {
        std::map<std::string, Map> all;
        for (const auto& file : std::filesystem::directory_iterator(Data + "/dosmaps")) {
            try {
                all[file.path().stem().string()] = ReadMap(file.path().string());
            } catch (const std::exception& error) {
                ADD_FAILURE() << file.path() << ": " << error.what();
            }
        }
        return all;
    }();
    return maps;
}

/// Gives places in those one-degree cells of the globe that hold land, evenly over the ground.
class LandPlaces {
public:
    LandPlaces()
    {
        std::istringstream text(Bytes(HALVERN_SOURCE "/tests/data/land-cells.txt"));
        for (std::string row; std::getline(text, row);) rows_.push_back(row);
    }

    Place Next()
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

TEST(MapData, EveryMapParsesToItsEndMarkAndDrawsQuickly)
{
    ASSERT_GT(Maps().size(), 100u);
    std::size_t packed = 0;
    for (const auto& [name, map] : Maps()) {
        EXPECT_LE(name.size(), 8u) << name;
        EXPECT_LE(map.points, 120000u) << name;
        packed += map.packed;
        for (const Polyline& line : map.lines)
            if (line.places.size() < 2) ADD_FAILURE() << name << ": a line of one point";
    }
    EXPECT_GT(packed, 0u);
    EXPECT_LT(packed, Maps().size());
}

TEST(MapData, AllOfItStaysSmall)
{
    std::uintmax_t bytes = 0;
    for (const auto& file : std::filesystem::recursive_directory_iterator(Data))
        if (file.is_regular_file()) bytes += file.file_size();
    EXPECT_LE(bytes, 25'000'000u);
}

TEST(MapData, TheListNamesOnlyMapsThatShipAndLeavesNoneOut)
{
    std::set<std::string> named{"world", "usa"};
    for (const auto& [step, entries] : ReadList(Data + "/maplist/maplist1.hvn"))
        for (const Entry& entry : entries) {
            named.insert(entry.name);
            const auto map = Maps().find(entry.name);
            ASSERT_NE(map, Maps().end()) << entry.name;
            EXPECT_LE(step, map->second.widestStep) << entry.name;
            EXPECT_GE(step, map->second.narrowestStep) << entry.name;
        }
    for (const auto& [name, map] : Maps()) EXPECT_TRUE(named.contains(name)) << name;
}

TEST(MapData, TheChosenMapCoversTheViewWhereverLandIs)
{
    constexpr int Tries = 10000;
    const List list = ReadList(Data + "/maplist/maplist1.hvn");
    ASSERT_EQ(list.size(), 12u);
    LandPlaces places;
    for (const auto& [step, entries] : list) {
        int outside = 0;
        for (int i = 0; i < Tries; ++i) {
            const Place centre = places.Next();
            const Map& map = Maps().at(Nearest(entries, centre).name);
            Place half = HalfView(step, centre.lat);
            // Half a turn to either side is all there is; nearer the poles than 80 degrees a map goes so far as it can.
            half.lon = std::min(half.lon, std::abs(centre.lat) > 80 ? 60.0 : 180.0);
            if (map.top < std::min(90.0, centre.lat + half.lat) - 0.001 ||
                map.bottom > std::max(-90.0, centre.lat - half.lat) || map.left < centre.lon + half.lon - 0.001 ||
                map.right > centre.lon - half.lon)
                ++outside;
        }
        EXPECT_EQ(outside, 0) << "of " << Tries << " views at step " << step;
    }
}

TEST(MapData, NoViewIsEmpty)
{
    constexpr int Tries = 4000;
    const List list = ReadList(Data + "/maplist/maplist1.hvn");
    LandPlaces places;
    for (const auto& [step, entries] : list) {
        int empty = 0;
        for (int i = 0; i < Tries; ++i) {
            const Place centre = places.Next();
            const std::string& name = Nearest(entries, centre).name;
            if (!ShowsSomething(Maps().at(name), centre, HalfView(step, centre.lat))) ++empty;
        }
        EXPECT_EQ(empty, 0) << "of " << Tries << " views at step " << step;
    }
}

/// Compares what the program's reader gives out with what the other one found.
class Compare : public halvern::MapLines {
public:
    explicit Compare(const Map& map)
    {
        for (const Polyline& line : map.lines)
            for (const Place& place : line.places) expected_.push_back({place, line.colour, &place == &line.places[0]});
    }

    void Start(double x, double y, int colour) override { Check(x, y, colour, true); }
    void LineTo(double x, double y, int colour) override { Check(x, y, colour, false); }

    bool AllSeenAndSame() const { return same_ && next_ == expected_.size(); }

private:
    struct Point {
        Place place;
        int colour;
        bool starts;
    };

    void Check(double x, double y, int colour, bool starts)
    {
        constexpr double FloatRounding = 1e-4;
        if (next_ < expected_.size()) {
            const Point& point = expected_[next_];
            same_ = same_ && std::abs(point.place.lon - x) < FloatRounding &&
                    std::abs(point.place.lat - y) < FloatRounding && point.colour == colour && point.starts == starts;
        }
        ++next_;
    }

    std::vector<Point> expected_;
    std::size_t next_ = 0;
    bool same_ = true;
};

TEST(MapData, TheProgramReadsEveryMapAsTheOtherReaderDoes)
{
    for (const auto& [name, map] : Maps()) {
        Compare compare(map);
        std::string format;
        EXPECT_EQ(halvern::ReadMapLines(Bytes(Data + "/dosmaps/" + name + ".map"), compare, format),
                  halvern::MapFileEnd::Marker)
            << name;
        EXPECT_TRUE(compare.AllSeenAndSame()) << name;
    }
}

TEST(MapData, TheProgramChoosesTheMapThatTheOtherReaderChooses)
{
    constexpr int Tries = 200;
    const std::string bytes = Bytes(Data + "/maplist/maplist1.hvn");
    const List list = ReadList(Data + "/maplist/maplist1.hvn");
    LandPlaces places;
    for (const auto& [step, entries] : list) {
        const int row = 12 - static_cast<int>(std::log2(step));
        for (int i = 0; i < Tries; ++i) {
            const Place place = places.Next();
            EXPECT_EQ(halvern::NearestMap(bytes, row, static_cast<float>(place.lat), static_cast<float>(place.lon)),
                      Nearest(entries, place).name)
                << "step " << step << " at " << place.lat << ", " << place.lon;
        }
    }
}

TEST(MapData, TheFallBackMapCoversItsView)
{
    const Place centre{38 + 32 / 60.0, 95 + 57 / 60.0};
    const Place half = HalfView(1024, centre.lat);
    const Map& map = Maps().at("usa");
    EXPECT_GE(map.top, centre.lat + half.lat);
    EXPECT_GE(map.left, centre.lon + half.lon);
    EXPECT_LE(map.bottom, centre.lat - half.lat);
    EXPECT_LE(map.right, centre.lon - half.lon);
}

TEST(MapData, TilesHoldWholePointsInTheirRegions)
{
    for (int region = 1; region <= 15; ++region)
        for (const char* layer : {"PB", "RDI", "RDL", "WB"}) {
            const std::string name = (region < 10 ? "S0" : "S") + std::to_string(region) + "_" + layer + ".GRF";
            std::istringstream rows(Bytes(Data + "/mapdata/" + name));
            int points = 0;
            for (std::string row; std::getline(rows, row);) {
                ASSERT_TRUE(row.size() > 16 && row.size() % 15 == 1 && std::isdigit(row[0])) << name << ": " << row;
                for (std::size_t i = 1; i < row.size(); i += 15, ++points) {
                    const double lon = std::stod(row.substr(i, 3) + "." + row.substr(i + 3, 4));
                    const double lat = std::stod(row.substr(i + 8, 2) + "." + row.substr(i + 10, 4));
                    ASSERT_TRUE(row[i + 7] == 'W' && row[i + 14] == 'N') << name << ": " << row;
                    ASSERT_TRUE(lon > 66 && lon < 125 && lat > 24 && lat < 50) << name << ": " << row;
                }
            }
            EXPECT_GT(points, 10) << name;
        }
}

TEST(MapData, TheSamplePictureIsCalibrated)
{
    EXPECT_TRUE(Bytes(Data + "/bitmap/usa.gif").starts_with("GIF8"));
    std::istringstream text(Bytes(Data + "/bitmap/usa.txt"));
    double top = 0, left = 0, bottom = 0, right = 0;
    ASSERT_TRUE(text >> top >> left >> bottom >> right);
    EXPECT_GT(top, bottom);
    EXPECT_LT(left, right); // east positive
}

} // namespace
