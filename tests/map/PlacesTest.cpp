// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/Places.h"

#include "support/Station.h"

#include <gmock/gmock.h>

#include <cmath>
#include <numbers>
#include <random>

namespace halvern {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const DiskFiles Disk;
const std::string Path = test::DataFolder() + R"(\places\places.dat)";

const std::string& Shipped()
{
    static const std::string bytes = Disk.Read(Path).value();
    return bytes;
}

std::string Little(std::size_t number, int length)
{
    std::string bytes;
    for (; length > 0; --length, number >>= 8) bytes += static_cast<char>(number & 255);
    return bytes;
}

/// A file whose one cell with places is the one from 42 N 74 W to 40 N 72 W.
std::string File(const std::string& records, int cells = 16200)
{
    std::string bytes = "HalvernPlaces 1\n";
    for (int cell = 0; cell < cells; ++cell)
        bytes += Little(16 + 4 * cells + (cell > 24 * 180 + 53 ? records.size() : 0), 4);
    return bytes + records;
}

std::string Record(const std::string& name, std::size_t people, int step, int south = 32768, int east = 32768)
{
    return Little(south, 2) + Little(east, 2) + Little(people, 4) + Little(step, 1) + Little(name.size(), 1) + name;
}

std::vector<std::string> Names(const std::vector<NamedPlace>& places)
{
    std::vector<std::string> names;
    for (const auto& place : places) names.emplace_back(place.name);
    return names;
}

TEST(Places, AViewNamesTheLargestOfItsRange)
{
    const auto file =
        File(Record("Big", 9000, 6) + Record("Middle", 800, 3, 0, 0) + Record("Small", 70, 0, 65535, 65535));
    ASSERT_TRUE(SoundPlaces(file));
    const PlaceView all{90, 180, -90, -180}, eastern{41.5, 73.5, 39, 70}, turned{90, 435, 0, 432};
    EXPECT_THAT(Names(PlacesInView(file, all, 1)), ElementsAre("Big", "Middle", "Small"));
    EXPECT_THAT(Names(PlacesInView(file, all, 1, 2)), ElementsAre("Big", "Middle"));
    EXPECT_THAT(Names(PlacesInView(file, all, 8)), ElementsAre("Big", "Middle"));
    EXPECT_THAT(Names(PlacesInView(file, all, 16)), ElementsAre("Big"));
    EXPECT_THAT(Names(PlacesInView(file, all, 8000)), IsEmpty());
    EXPECT_THAT(Names(PlacesInView(file, eastern, 1)), ElementsAre("Big", "Small"));
    // A view past the date line has its places where the view is.
    const auto beyond = PlacesInView(file, turned, 64);
    ASSERT_THAT(Names(beyond), ElementsAre("Big"));
    EXPECT_DOUBLE_EQ(beyond[0].lat, 41);
    EXPECT_DOUBLE_EQ(beyond[0].lon, 73 + 360);
    EXPECT_EQ(beyond[0].people, 9000u);
    for (const PlaceView& none : {PlaceView{40, 74, 42, 72}, PlaceView{42, 72, 40, 74}, PlaceView{42, 1e30, 40, 72},
                                  PlaceView{NAN, NAN, NAN, NAN}, PlaceView{10, 74, 0, 72}})
        EXPECT_THAT(PlacesInView(file, none, 1), IsEmpty());
}

TEST(Places, DamageIsToldAndNeverReadPast)
{
    const auto good = File(Record("Big", 9000, 6) + Record("Small", 70, 0));
    auto backwards = good, otherFormat = good;
    backwards.replace(16 + 4 * 5000, 4, Little(99, 4));
    otherFormat[14] = '2';
    std::vector<std::string> files{File(Record("", 1, 1)), File(Record("Step", 1, 14)), File({}, 16199), backwards,
                                   otherFormat};
    for (std::size_t cut = 0; cut < good.size(); cut += cut + 40 < good.size() ? 997 : 1)
        files.push_back(good.substr(0, cut));
    for (const auto& bad : files) {
        // Only a cut between two records leaves what could be a whole file.
        if (bad.size() + Record("Small", 0, 0).size() != good.size()) {
            EXPECT_FALSE(SoundPlaces(bad)) << bad.size();
        }
        PlacesInView(bad, {90, 180, -90, -180}, 0);
        NearestPlace(bad, 41, 73);
    }
    EXPECT_TRUE(SoundPlaces(File({})));
    EXPECT_FALSE(NearestPlace(File({}), 41, 73));
    for (const double lat : {91.0, double(NAN)}) EXPECT_FALSE(NearestPlace(good, lat, 73));

    test::TemporaryFolder folder;
    folder.Put("cut.dat", good.substr(0, good.size() - 1));
    PlaceNames cut(Disk, folder.Path() + "\\cut.dat"), missing(Disk, folder.Path() + "\\none.dat"), shipped(Disk, Path);
    EXPECT_THAT(cut.Trouble(), ::testing::EndsWith("cut.dat is damaged."));
    EXPECT_THAT(missing.Trouble(), ::testing::EndsWith("none.dat can't be read."));
    EXPECT_EQ(shipped.Trouble(), "");
    for (auto* names : {&cut, &missing}) {
        EXPECT_EQ(WhereIs(*names, 41, 73), "");
        EXPECT_THAT(names->InView({90, 180, -90, -180}, 1), IsEmpty());
    }
}

TEST(Places, WhatShipsTellsWhereAStationIs)
{
    PlaceNames places(Disk, Path);
    struct {
        double lat, lon;
        const char* text;
    } const cases[] = {
        {40.98, 72.60, "2 km NE of Northville"},
        {40.7143, 74.006, "in New York City"},
        {59.32, -18.07, "in Södermalm"},
        {-33.83, -151.5, "20 km E of Manly"},
        {47.62, 122.45, "5 km E of Bainbridge Island"},
        {-17.0, 179.9, "101 km SE of Labasa"}, // which lies west of the date line
        {21.30, 157.858 + 360, "in Honolulu"},
        {-50, 130, ""},
        {90, 0, ""},
    };
    for (const auto& [lat, lon, text] : cases) EXPECT_EQ(WhereIs(places, lat, lon), text) << lat << " " << lon;
}

TEST(Places, TheNearestIsTheNearestOfAll)
{
    const auto all = PlacesInView(Shipped(), {90, 180, -90, -180}, 0, 1'000'000);
    ASSERT_GT(all.size(), 100'000u);
    constexpr double radian = std::numbers::pi / 180;
    std::mt19937 random{7};
    for (int i = 0; i < 60; ++i) {
        const double lat = std::uniform_real_distribution(-90.0, 90.0)(random);
        const double lon = std::uniform_real_distribution(-180.0, 180.0)(random);
        double least = 1e9;
        for (const auto& place : all) {
            const double cosine =
                std::sin(lat * radian) * std::sin(place.lat * radian) +
                std::cos(lat * radian) * std::cos(place.lat * radian) * std::cos((lon - place.lon) * radian);
            least = std::min(least, 6371 * std::acos(std::min(1.0, cosine)));
        }
        EXPECT_NEAR(NearestPlace(Shipped(), lat, lon).value().kilometres, least, 0.01) << lat << " " << lon;
    }
}

} // namespace
} // namespace halvern
