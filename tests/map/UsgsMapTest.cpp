// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/UsgsMapFile.h"

#include "map/UsgsMap.h"
#include "support/MapStation.h"

namespace halvern::test {
namespace {

/// A view with one corner in a region, both, or none.
MapState View(double range, std::pair<float, float> topLeft, std::pair<float, float> bottomRight,
              std::pair<float, float> centre = {0, 0})
{
    MapState view;
    view.MapRange = range;
    std::tie(view.MapTopLat, view.MapLeftLon) = topLeft;
    std::tie(view.MapBottomLat, view.MapRightLon) = bottomRight;
    std::tie(view.MapCenterLat, view.MapCenterLon) = centre;
    return view;
}

TEST(UsgsRegions, HowMuchOfTheCountryAViewTakes)
{
    using Place = std::pair<float, float>;
    const Place none{0, 0}, one{45, 70}, four{26, 81}, five{31, 92}, eight{27, 97}, twelve{34, 110}, fifteen{47, 120};
    const struct {
        double range;
        Place topLeft, bottomRight;
        int first, last;
    } cases[] = {
        {64, none, none, 1, 15},   {64, fifteen, four, 4, 15}, {64, one, eight, 1, 8},   {8, none, one, 1, 0},
        {1, none, one, 1, 15},     {32, none, four, 4, 7},     {256, none, four, 4, 11}, {1024, none, four, 4, 15},
        {128, none, five, 5, 11},  {512, none, five, 5, 15},   {16, none, eight, 8, 0},  {64, none, eight, 8, 15},
        {2, none, twelve, 12, 12}, {32, none, twelve, 1, 15},  {4, one, none, 1, 1},     {32, four, none, 4, 4},
        {64, four, none, 4, 7},    {512, four, none, 4, 11},   {1, four, none, 4, 15},   {32, five, none, 1, 5},
        {256, five, none, 1, 15},  {8, eight, none, 8, 8},     {64, eight, none, 1, 15}, {16, fifteen, none, 15, 15}};
    for (const auto& [range, topLeft, bottomRight, first, last] : cases) {
        const auto span = RegionsOf(View(range, topLeft, bottomRight));
        EXPECT_TRUE(span.first == first && span.last == last)
            << range << ", " << topLeft.first << ", " << bottomRight.first << ": " << span.first << " to " << span.last;
    }
    EXPECT_EQ(RegionsOf(View(64, none, none, twelve)).first, 1); // the centre counts as the bottom right corner
    EXPECT_EQ(RegionsOf(View(16, none, none, twelve)).first, 12);
    EXPECT_EQ(RegionsOf(View(128, none, none, twelve)).last, 15);
}

class UsgsMap : public MapStation {
protected:
    UsgsMap()
    {
        ShowMap();
        MapCommand(halvern(), "UsgsMap");
        station.map.Take();
    }
    Strings Drawn()
    {
        Strings steps;
        for (const auto& step : station.map.Take())
            if (step.kind == NotedDrawing::Step::Point || step.kind == NotedDrawing::Step::Line)
                steps.push_back(NotedDrawing::Text(step));
        return steps;
    }
    void PutTile(const std::string& name, const std::string& bytes) { folder.Put("mapdata/" + name + ".GRF", bytes); }
};

TEST_F(UsgsMap, PointsOutsideAreLeftOutAndTheRestJoined)
{
    for (const char* layer : {"RDI", "RDL", "PB", "WB"}) PutTile(std::string("S12_") + layer, "");
    PutTile("S12_RDI", "60731000W400500N0732500W400500N0990000W400500N0732500W400250N\r\n"
                       "4\r\n"
                       "40731000W400500\r\n"
                       "x0731000W400500N\r\n"
                       "50731000W40x500N0731000E400500N0731000W400250S");
    PutTile("S12_WB", "10731000W400250N\n20735000W400500N\n");
    GoToView(halvern(), 34, 110, 16); // the tiles of region 12, whose lines a test may put anywhere
    EXPECT_THAT(Drawn(), ElementsAre());
    const ViewFrame view{.left = 73.5, .top = 40.1F, .right = 73, .bottom = 40};
    const auto drawnOf = [&](const char* tile) {
        const auto read = [&, bytes = *station.files.Read(S() + "/mapdata/" + tile)](MapLines& lines) {
            ReadTileLines(bytes, view, lines);
        };
        {
            BothSurfaces surfaces(halvern().MapFrm, read);
            read(surfaces);
        }
        return Drawn();
    };
    EXPECT_THAT(drawnOf("S12_RDI.GRF"),
                ElementsAre("point 73.0999985,40.0499992 6", "line 73.25,40.0499992 6", "line 73.25,40.0250015 6"));
    EXPECT_THAT(drawnOf("S12_WB.GRF"), ElementsAre("point 73.0999985,40.0250015 1")); // an edge is outside
}

} // namespace
} // namespace halvern::test
