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

TEST_F(MapmakerFiles, TheListKeepsWhatItIsToldAndRefusesWhatItCantHold)
{
    const std::filesystem::path file = folder / "maplist1.hvn";
    MapList list;
    EXPECT_THROW(list.Write(file), std::runtime_error); // no step has a map
    for (const int step : ListSteps) list.Add(step, {"a" + std::to_string(step), 38.53333, -139.99999});
    list.Add(64, {"own", -0.25, 179.5});
    EXPECT_THROW(list.Add(48, {"own", 0, 0}), std::runtime_error);
    list.Write(file);
    EXPECT_EQ(NearestMap(ReadWhole(file), 6, 0, 179), "own");
    MapList again = MapList::Read(file);
    ASSERT_EQ(again.Entries(64).size(), 2u);
    EXPECT_EQ(again.Entries(64)[1].lat, -0.25);
    EXPECT_EQ(again.Entries(64)[1].lon, 179.5);
    EXPECT_EQ(again.Entries(1)[0].lon, -140);
    EXPECT_EQ(again.Entries(1)[0].lat, 38.5333);
    EXPECT_EQ(again.Remove("own"), 1u);
    EXPECT_EQ(again.Entries(64).size(), 1u);
    EXPECT_EQ(again.Entries(2048)[0].name, "a2048");
    again.Add(1, {"ninechars", 0, 0});
    EXPECT_THROW(again.Write(file), std::runtime_error);
    WriteWhole(file, "not a list");
    EXPECT_THROW(MapList::Read(file), std::runtime_error);
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

TEST(MapmakerGeometry, LinesThatAreSimplifiedTogetherDoNotCross)
{
    constexpr int Units = 10000;
    constexpr double Tolerance = 0.03;
    // Both banks of a winding channel that is narrower than the tolerance, one of them a full turn away, and an islet.
    std::vector<Path> banks(3);
    std::mt19937 random(3);
    for (int i = 0; i < 4000; ++i) {
        const double lon = 20 - i * 0.0005, lat = 10 + 0.1 * std::sin(i / 40.0) * std::cos(i / 7.0);
        const double shaken = 0.004 * std::uniform_real_distribution(0.0, 1.0)(random);
        banks[0].push_back({lat + 0.001 + shaken, lon});
        banks[1].push_back({lat - 0.001 - shaken, lon - 360});
        if (i < 100) banks[2].push_back({lat + 0.0002 * std::sin(i), lon});
    }
    const auto inOneTurn = [](std::vector<Path> lines) {
        for (Vertex& vertex : lines[1]) vertex.lon += 360;
        return lines;
    };
    auto alone = banks, together = banks;
    std::vector<Path*> lines;
    for (std::size_t i = 0; i < banks.size(); ++i) {
        alone[i] = Simplify(banks[i], Tolerance);
        lines.push_back(&together[i]);
    }
    ASSERT_GT(test::Crossings(inOneTurn(alone), Units), 5);
    EXPECT_EQ(SimplifyTogether(lines, Units, [&](const Vertex&) { return Tolerance; }), 0u);
    EXPECT_EQ(test::Crossings(inOneTurn(together), Units), 0);
    EXPECT_LT(together[0].size(), banks[0].size() / 4);

    // What crosses in the source is counted and stays.
    Path one{{0, 0}, {1, 1}}, other{{0, 1}, {1, 0}};
    EXPECT_EQ(SimplifyTogether({&one, &other}, Units, [](const Vertex&) { return 1.0; }), 1u);
    EXPECT_EQ(one, (Path{{0, 0}, {1, 1}}));
}

TEST(MapmakerGeometry, SimplifyingKeepsEveryLeftOutVertexWithinTheTolerance)
{
    EXPECT_EQ(Simplify({{40, 90}, {40.0005, 89.5}, {40, 89}}, 0.001), (Path{{40, 90}, {40, 89}}));
    EXPECT_EQ(Simplify({{40, 90}, {40.002, 89.5}, {40, 89}}, 0.001).size(), 3u);
    const Path ring{{40, 90}, {41, 90}, {41, 89}, {40, 89}, {40, 90}};
    EXPECT_EQ(Simplify(ring, 0.1), ring);
    const Path remote{{0, -20}, {0.0015, -20.5}, {0, -21}}; // where the shipped maps are coarser
    EXPECT_EQ(Simplify(remote, 0.001), remote);
    EXPECT_EQ(Simplify(remote, 0.001, Coarseness).size(), 2u);
}

TEST(MapmakerGeometry, APathAcrossTheDateLineGoesOn)
{
    const std::vector<std::pair<std::vector<double>, std::vector<double>>> cases{
        {{-179, 179, 178}, {-179, -181, -182}},         // eastward past the line
        {{179, -179, -178, 179}, {179, 181, 182, 179}}, // over and back
        {{-179, 179, 179, -179}, {-179, -181, -181, -179}},
        {{180, -180, -180}, {180, -180, -180}}, // around the globe
        {{100, -70}, {100, -70}},               // less than half a turn
    };
    for (const auto& [before, after] : cases) {
        Path path;
        for (const double lon : before) path.push_back({1, lon});
        TakeShortWays(path);
        for (std::size_t i = 0; i < path.size(); ++i) EXPECT_EQ(path[i].lon, after[i]) << before[0] << " at " << i;
    }
}

TEST(MapmakerGeometry, PiecesJoinWhereJustTwoOfAKindMeet)
{
    // Two pieces meet at the date line from both sides, one of them backwards; a third belongs to another line.
    const std::vector<KeyedPath> joined =
        JoinEnds({{1, {{0, -179}, {0, -180}}}, {1, {{0, 178}, {0, 180}}}, {2, {{0, -180}, {5, -180}}}});
    ASSERT_EQ(joined.size(), 2u);
    const Path& path = joined[0].vertices;
    ASSERT_EQ(path.size(), 3u);
    EXPECT_NEAR(std::abs(path[0].lon - path[2].lon), 3, 1e-9);
    EXPECT_EQ(joined[1].key, 2);
    const KeyedPath spoke{1, {{0, 0}, {0, 1}}};
    EXPECT_EQ(JoinEnds({spoke, {1, {{0, 0}, {1, 0}}}, {1, {{0, 0}, {-1, 0}}}}).size(), 3u);
}

TEST(MapmakerGeometry, AnAreaHasHolesAndEdges)
{
    const Area area({{{0, 0}, {0, 10}, {10, 10}, {10, 0}, {0, 0}}, {{4, 4}, {4, 6}, {6, 6}, {6, 4}, {4, 4}}});
    for (const Vertex inside : {Vertex{2, 2}, {5, 7}}) EXPECT_TRUE(area.Holds(inside));
    for (const Vertex outside : {Vertex{5, 5}, {5, 11}, {-1, 5}}) EXPECT_FALSE(area.Holds(outside));
}

TEST(MapmakerTiles, RowsAreShortDenseAndWithinTheRegion)
{
    const std::string text = TileText({42, 84, 40, 74}, {{6, "", {{41, 90}, {41, 60}}}});
    EXPECT_TRUE(text.starts_with("60840000W410000N0838507W410000N"));
    std::size_t rows = 0;
    for (std::size_t start = 0, end; (end = text.find('\n', start)) != std::string::npos; start = end + 1, ++rows)
        EXPECT_LE(end - start, 1 + 40u * 15);
    EXPECT_EQ(rows, 2u);
    EXPECT_TRUE(text.ends_with("0740000W410000N\n"));
    EXPECT_EQ(TileText({42, 84, 40, 74}, {{6, "", {{50, 90}, {50, 60}}}}), "");
    EXPECT_EQ(TileName(6, "RDI"), "S07_RDI.GRF");
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

TEST(MapmakerRules, ATagIsFoundAmongTheOthers)
{
    const std::string tags = R"("ref"=>"I 87","note"=>"a \"b\" \\ => c","lanes"=>"4")";
    const std::vector<std::pair<std::string, std::string>> cases{
        {"ref", "I 87"}, {"note", "a \"b\" \\ => c"}, {"lanes", "4"}, {"I 87", ""}, {"", ""}};
    for (const auto& [name, value] : cases) EXPECT_EQ(TagOf(tags, name), value) << name;
    EXPECT_EQ(TagOf("", "ref") + TagOf("\"ref", "ref") + TagOf("\"ref\"=>", "ref"), "");
}

TEST(MapmakerRules, ABadRuleIsNamedByItsRow)
{
    for (const char* row :
         {"lines", "lines highway 3", "lines =x 3", "lines a=b 16", "lines a=b red", "lines a=b 3 n more"})
        try {
            Rules::Parse("* * 1\n" + std::string(row) + "\n");
            ADD_FAILURE() << row;
        } catch (const std::runtime_error& error) {
            EXPECT_NE(std::string(error.what()).find("row 2"), std::string::npos) << error.what();
        }
    EXPECT_THROW(Rules::Parse("# nothing\n"), std::runtime_error);
}

} // namespace
