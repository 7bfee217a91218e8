// SPDX-License-Identifier: GPL-3.0-or-later
#include "mapmaker/MapFile.h"
#include "mapmaker/MapList.h"
#include "mapmaker/Output.h"
#include "mapmaker/RegionTiles.h"
#include "mapmaker/Rules.h"
#include "support/Crossings.h"
#include "support/DrawnLines.h"
#include "support/Station.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <random>

namespace {

using namespace halvern;
using namespace halvern::mapmaker;

struct MapmakerFiles : testing::Test {
    const test::TemporaryFolder temporary;
    const std::filesystem::path folder = temporary.Path();
};

TEST_F(MapmakerFiles, AMapReadsBackToWithinHalfAUnitInBothFormats)
{
    const Box frame{10, 200, -5, 180.5}; // past the date line
    std::mt19937 random(7);
    Path path{{10, 200}};
    for (int i = 0; i < 9000; ++i)
        path.push_back(
            {std::uniform_real_distribution(-5.0, 10.0)(random), std::uniform_real_distribution(180.5, 200.0)(random)});
    path.push_back({-5, 180.5});
    for (const BodyFormat format : {BodyFormat::Ascii, BodyFormat::LineFormat}) {
        const MapPlan plan{format, frame, 500, 64, 16};
        const std::filesystem::path file = folder / "a.map";
        const MapFigures figures = WriteMap(file, plan, {{11, "coast", path}});
        test::DrawnLines drawn;
        std::string word;
        EXPECT_EQ(ReadMapLines(ReadWhole(file), drawn, word), MapFileEnd::Marker);
        EXPECT_EQ(word, format == BodyFormat::LineFormat ? "LineFormat" : "ASCII");
        const double unit = 1.0 / (word == "LineFormat" ? LineFormatScale(frame) : plan.unitsPerDegree);
        std::size_t next = 0, points = 0;
        for (const auto& line : drawn.lines) {
            EXPECT_EQ(line.colour, 11);
            points += line.vertices.size();
            for (std::size_t i = next == 0 ? 0 : 1; i < line.vertices.size(); ++i, ++next) { // runs share their ends
                ASSERT_NEAR(line.vertices[i].lat, path[next].lat, unit * 0.51);
                ASSERT_NEAR(line.vertices[i].lon, path[next].lon, unit * 0.51);
            }
        }
        EXPECT_EQ(next, path.size());
        EXPECT_EQ(points, figures.points);
        const MapContent content = ReadMap(file); // what is read and written again stays the same
        EXPECT_EQ(content.lines.size(), drawn.lines.size());
        EXPECT_EQ(content.lines[0].name, format == BodyFormat::Ascii ? "coast" : "");
        EXPECT_NEAR(content.plan.frame.left, frame.left, unit);
        EXPECT_EQ(content.plan.narrowestStep, 16);
    }
}

TEST_F(MapmakerFiles, WhatIsNoMapIsNamedAndRefused)
{
    const MapPlan tooLarge{BodyFormat::LineFormat, {90, 3700, -90, 0}, 0, 0, 0};
    EXPECT_THROW(WriteMap(folder / "a.map", tooLarge, {}), std::runtime_error);
    const std::string head = "10\n20\n100\n5\n15\n8\n1\n";
    for (const std::string& text : std::vector<std::string>{
             "", head, head + "Binary\n", head + "ASCII\n0,0,3,\n5,5\n", head + "ASCII\n5,5\n0,-1\n",
             head + "ASCII\n0,0,3,\n5\n0,-1\n", head + "LineFormat\n3\n", "x\n20\n100\n5\n15\n8\n1\nASCII\n0,-1\n"}) {
        WriteWhole(folder / "bad.map", text);
        try {
            ReadMap(folder / "bad.map");
            ADD_FAILURE() << text;
        } catch (const std::runtime_error& error) {
            EXPECT_NE(std::string(error.what()).find("bad.map"), std::string::npos);
        }
    }
}

TEST_F(MapmakerFiles, AFileOfOursTakesTheLinksPlaceAndFailureLeavesTheOldOne)
{
    WriteWhole(folder / "shared", "all read this");
    std::filesystem::create_symlink(folder / "shared", folder / "own");
    WriteWhole(folder / "own", "changed");
    EXPECT_EQ(ReadWhole(folder / "shared"), "all read this");
    EXPECT_EQ(ReadWhole(folder / "own"), "changed");
    std::filesystem::create_directory(folder / "own.new"); // stands in the new file's way
    EXPECT_THROW(WriteWhole(folder / "own", "half"), std::runtime_error);
    EXPECT_EQ(ReadWhole(folder / "own"), "changed");
    EXPECT_THROW(ReadWhole(folder), std::runtime_error);
    EXPECT_THROW(WriteMap("/dev/null/a.map", {BodyFormat::Ascii, {1, 1, 0, 0}, 10, 0, 0}, {}), std::exception);
}

TEST(MapmakerGeometry, ClippingCutsAtTheFrameAndFollowsTheTurnsOfTheGlobe)
{
    struct Case {
        const char* what;
        Path path;
        Box frame;
        std::vector<Path> pieces;
    };
    const Box square{1, 1, -1, -1};
    const std::vector<Case> cases{
        {"inside", {{0, 0.5}, {0, -0.5}}, square, {{{0, 0.5}, {0, -0.5}}}},
        {"through", {{0, 3}, {0, -3}}, square, {{{0, 1}, {0, -1}}}},
        {"out and in again", {{0, 0}, {0, 2}, {0.5, 2}, {0.5, 0}}, square, {{{0, 0}, {0, 1}}, {{0.5, 1}, {0.5, 0}}}},
        {"past it", {{0, 3}, {0, 2}}, square, {}},
        {"above it", {{2, 3}, {2, -3}}, square, {}},
        {"across the date line", {{0, 179}, {0, 181}}, {1, -178, -1, -182}, {{{0, -181}, {0, -179}}}},
        {"twice in a frame of two turns",
         {{0, 10}, {0, 9}},
         {1, 380, -1, 0},
         {{{0, 10}, {0, 9}}, {{0, 370}, {0, 369}}}},
    };
    for (const Case& test : cases) EXPECT_EQ(Clip(test.path, test.frame), test.pieces) << test.what;
}

TEST(MapmakerRules, TheFirstRuleThatFitsDecides)
{
    const Rules rules = Rules::Parse("\xEF\xBB\xBF# layer condition colour name\r\n"
                                     "lines highway=motorway 14 ref\n"
                                     "\n"
                                     "*     highway=*        skip   # all other roads\n"
                                     "*     waterway=river   9  -\n"
                                     "\"my roads\" \"type=Major Highway\" 12 \"full name\"\r\n"
                                     "sea   *                3\n");
    const auto look = [&](const std::string& layer, const std::string& field, const std::string& value) {
        const std::optional<Look> found =
            rules.LookOf(layer, [&](const std::string& name) { return name == field ? value : std::string(); });
        return found ? std::to_string(found->colour) + found->nameField : "none";
    };
    const struct {
        const char *layer, *field, *value, *found;
    } cases[] = {{"lines", "highway", "motorway", "14ref"},  {"areas", "highway", "motorway", "none"},
                 {"sea", "highway", "path", "none"},         {"lines", "waterway", "river", "9"},
                 {"sea", "waterway", "dock", "3"},           {"lines", "waterway", "dock", "none"},
                 {"roads", "type", "Major Highway", "none"}, {"my roads", "type", "Major Highway", "12full name"}};
    for (const auto& [layer, field, value, found] : cases)
        EXPECT_EQ(look(layer, field, value), found) << layer << value;
}

} // namespace
