// SPDX-License-Identifier: GPL-3.0-or-later
#include "mapmaker/MapFile.h"
#include "mapmaker/Output.h"
#include "support/DrawnLines.h"
#include "support/Station.h"

#include <gtest/gtest.h>

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

} // namespace
