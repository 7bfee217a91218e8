// SPDX-License-Identifier: GPL-3.0-or-later
// What a map tool can do wrong without a word: cut, thin and join lines, and take a road for a river.
#include "mapmaker/Geometry.h"
#include "mapmaker/Rules.h"

#include <gtest/gtest.h>

namespace halvern::mapmaker {
namespace {

TEST(MapmakerShapes, ClippingCutsAtTheFrameAndFollowsTheTurnsOfTheGlobe)
{
    const Box square{1, 1, -1, -1};
    const std::tuple<Path, Box, std::vector<Path>> cases[] = {
        {{{0, 3}, {0, -3}}, square, {{{0, 1}, {0, -1}}}},
        {{{0, 0}, {0, 2}, {0.5, 2}, {0.5, 0}}, square, {{{0, 0}, {0, 1}}, {{0.5, 1}, {0.5, 0}}}},
        {{{2, 3}, {2, -3}}, square, {}},
        {{{0, 179}, {0, 181}}, {1, -178, -1, -182}, {{{0, -181}, {0, -179}}}},
        {{{0, 10}, {0, 9}}, {1, 380, -1, 0}, {{{0, 10}, {0, 9}}, {{0, 370}, {0, 369}}}}};
    for (const auto& [path, frame, pieces] : cases) EXPECT_EQ(Clip(path, frame), pieces) << path[0].lon;
}

TEST(MapmakerShapes, SimplifyingKeepsTheToleranceAndMakesNoCrossing)
{
    EXPECT_EQ(Simplify({{40, 90}, {40.0005, 89.5}, {40, 89}}, 0.001), (Path{{40, 90}, {40, 89}}));
    EXPECT_EQ(Simplify({{40, 90}, {40.002, 89.5}, {40, 89}}, 0.001).size(), 3u);
    const Path ring{{40, 90}, {41, 90}, {41, 89}, {40, 89}, {40, 90}}, bend{{0, 2}, {0.5, 1}, {0, 0}};
    EXPECT_EQ(Simplify(ring, 0.1), ring);
    Path bank = bend, pier{{-0.2, 1}, {0.2, 1}}, away{{5, 2}, {5.5, 1}, {5, 0}};
    const auto coarse = [](const Vertex&) { return 1.0; };
    EXPECT_EQ(SimplifyTogether({&bank, &pier, &away}, 1000, coarse), 0u);
    EXPECT_EQ(bank, bend) << "without its bend it would cross the pier";
    EXPECT_EQ(away.size(), 2u);
    Path one{{0, 0}, {1, 1}}, other{{0, 1}, {1, 0}};
    EXPECT_EQ(SimplifyTogether({&one, &other}, 1000, coarse), 1u) << "what crosses in the source is counted";
}

TEST(MapmakerShapes, PiecesGoOnAcrossTheDateLineWhereJustTwoOfAKindMeet)
{
    const std::pair<std::vector<double>, std::vector<double>> cases[] = {{{-179, 179, 178}, {-179, -181, -182}},
                                                                         {{179, -179, -178, 179}, {179, 181, 182, 179}},
                                                                         {{100, -70}, {100, -70}}};
    for (const auto& [before, after] : cases) {
        Path path;
        for (const double lon : before) path.push_back({1, lon});
        TakeShortWays(path);
        for (std::size_t i = 0; i < path.size(); ++i) EXPECT_EQ(path[i].lon, after[i]) << before[0] << " at " << i;
    }
    const auto joined = JoinEnds({{1, {{0, -179}, {0, -180}}}, {1, {{0, 178}, {0, 180}}}, {2, {{0, -180}, {5, -180}}}});
    ASSERT_EQ(joined.size(), 2u);
    EXPECT_EQ(joined[0].vertices.size(), 3u);
    EXPECT_EQ(JoinEnds({{1, {{0, 0}, {0, 1}}}, {1, {{0, 0}, {1, 0}}}, {1, {{0, 0}, {-1, 0}}}}).size(), 3u);
}

TEST(MapmakerRules, TheFirstRuleThatFitsDecidesAndABadOneIsNamedByItsRow)
{
    const Rules rules =
        Rules::Parse("\xEF\xBB\xBF# layer condition colour name\r\nlines highway=motorway 14 ref\n\n"
                     "*     highway=*        skip   # all other roads\n*     waterway=river   9  -\n"
                     "\"my roads\" \"type=Major Highway\" 12 \"full name\"\r\nsea   *                3\n");
    const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
        {"lines", "highway", "motorway", "14ref"}, {"areas", "highway", "motorway", "none"},
        {"lines", "waterway", "river", "9"},       {"lines", "waterway", "dock", "none"},
        {"sea", "waterway", "dock", "3"},          {"my roads", "type", "Major Highway", "12full name"}};
    for (const auto& [layer, field, value, found] : cases) {
        const auto look = rules.LookOf(layer, [&](const std::string& name) { return name == field ? value : ""; });
        EXPECT_EQ(look ? std::to_string(look->colour) + look->nameField : "none", found) << layer << value;
    }
    for (const std::string row : {"lines", "lines =x 3", "lines a=b 16", "lines a=b red", "lines a=b 3 n more"}) try {
            Rules::Parse("* * 1\n" + row + "\n");
            ADD_FAILURE() << row;
        } catch (const std::runtime_error& error) {
            EXPECT_NE(std::string(error.what()).find("row 2"), std::string::npos) << error.what();
        }
    EXPECT_EQ(TagOf(R"("ref"=>"I 87","note"=>"a \"b\" \\ => c","lanes"=>"4")", "note"), "a \"b\" \\ => c");
}

} // namespace
} // namespace halvern::mapmaker
