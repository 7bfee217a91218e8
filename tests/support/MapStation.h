// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "map/MapCommand.h"
#include "map/MapMouse.h"
#include "support/StationTest.h"
#include "view/Geometry.h"

namespace halvern::test {

/// A line map of one line of two points, whose colour tells the maps of a test apart.
inline std::string SmallMap(int colour)
{
    return "56\r\n128\r\n500\r\n20\r\n64\r\n1024\r\n1024\r\nASCII\r\n0,0," + std::to_string(colour) +
           ",coast\r\n1000,500\r\n1500,500\r\n0,-1\r\n";
}

inline std::string ListRecord(std::string_view left, std::string_view right)
{
    return Padded(left, 13) + Padded(right, 10);
}

/// A list of maps where every step of the ladder has the same entries of 23 bytes.
inline std::string ListOf(const std::vector<std::string>& entries)
{
    std::string list;
    for (int row = 0; row < 12; ++row) list += ListRecord("13", std::to_string(entries.size()));
    for (const auto& entry : entries) list += entry;
    return list;
}

inline std::string GifOf(int width, int height)
{
    return std::string("GIF89a") + static_cast<char>(width) + '\0' + static_cast<char>(height) + '\0';
}

/// A station with a little folder of maps: the world in colour 1, the USA in colour 2, a local map in colour 3. The map
/// window has 400 by 300 pixels.
class MapStation : public ::testing::Test {
protected:
    MapStation()
    {
        PutFiles();
        folder.Put("symbols/table1/045.gif", GifOf(16, 12));
        folder.Put("symbols/table1/095.gif", GifOf(16, 12));
        folder.Put("symbols/table1/062.gif", GifOf(40, 30));
        station.SetUp();
        main().DosMapMenu.SetChecked(true);
        main().DosMapMenu.SetEnabled(false);
        halvern().Map.MapBusy = true;
        halvern().Engine.ConfigLoaded = true;
        halvern().MapFrm.SetPlace({300 * 15, 0, 0, 400 * 15, 0});
    }

    void PutFiles()
    {
        folder.Put("dosmaps/world.map", SmallMap(1));
        folder.Put("dosmaps/usa.map", SmallMap(2));
        folder.Put("dosmaps/local.map", SmallMap(3));
        folder.Put("maplist/maplist1.hvn", ListOf({"local   400000N0730000W"}));
    }
    Halvern& halvern() { return station.halvern; }
    MainForm& main() { return station.halvern.ConMdiFrm; }
    MapState& view() { return station.halvern.Map; }
    void ShowMap() { halvern().MapFrm.Show(); }
    std::string S() const { return folder.Path(); }
    Strings Said() { return station.TakeSaid(); }
    /// What was drawn since last asked, as console lines.
    Strings Drawn()
    {
        Strings steps;
        for (const auto& step : station.map.Take()) steps.push_back(NotedDrawing::Text(step));
        return steps;
    }

    /// The colours of the maps that were drawn since last asked, one a map.
    std::vector<int> MapsDrawn()
    {
        std::vector<int> colours;
        for (const auto& step : station.map.Take())
            if (step.kind == NotedDrawing::Step::Point) colours.push_back(step.colour);
        return colours;
    }

    TemporaryFolder folder;
    Station station{folder.Path()};
};

} // namespace halvern::test
