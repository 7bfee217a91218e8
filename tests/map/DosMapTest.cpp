// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/MapStation.h"

#include "map/DosMap.h"

namespace halvern::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

class DosMap : public MapStation {
protected:
    void Remove(const std::string& name) { EXPECT_TRUE(station.files.Remove(S() + "/" + name)); }
    void Go(double range)
    {
        MapsDrawn();
        station.TakeSaid();
        GoToView(halvern(), 40, 73, range);
    }
    std::vector<std::string> Started()
    {
        ShowMap();
        Go(64);
        MapsDrawn();
        return station.TakeSaid();
    }
    std::string Information(const std::string& text) const { return "message information \"Halvern\" \"" + text; }
    std::string Folder() const { return S() + "\\\\"; }
    const std::string draws = " Halvern will now draw the usa.map at 1024 map range.\"";
};

TEST_F(DosMap, TheRangeChoosesAmongWorldAndList)
{
    Started();
    struct Case {
        double range;
        int colour;
        const char* name;
    };
    for (const auto& [range, colour, name] : std::initializer_list<Case>{
             {8000, 1, "WORLD.MAP"}, {4096, 1, "WORLD.MAP"}, {2048, 3, "local.map"}, {1, 3, "local.map"}}) {
        Go(range);
        EXPECT_THAT(MapsDrawn(), ElementsAre(colour)) << range;
        EXPECT_EQ(main().dMapTxt.Text(), name);
    }
    EXPECT_THAT(station.TakeSaid(), IsEmpty());
}

TEST_F(DosMap, BothSurfacesGetEveryPoint)
{
    Started();
    station.picture.Take();
    Go(64);
    std::vector<std::string> onMap, onTwin;
    for (const auto& step : station.map.Take()) onMap.push_back(NotedDrawing::Text(step));
    for (const auto& step : station.picture.Take()) onTwin.push_back(NotedDrawing::Text(step));
    EXPECT_THAT(onMap, ElementsAre("clear", StartsWith("frame "), "point 126,55 3", "line 125,55 3"));
    EXPECT_EQ(onTwin, onMap);
}

TEST_F(DosMap, AMissingMapIsToldAndTheCountryDrawn)
{
    Started();
    Remove("dosmaps/local.map");
    Go(64);
    EXPECT_THAT(station.TakeSaid(),
                ElementsAre(Information("Dos Map file not found. You may have deleted it from the " + Folder() +
                                        "dosmaps directory." + draws)));
    EXPECT_THAT(MapsDrawn(), ElementsAre(2));
    EXPECT_EQ(main().ScaleCombo.Text(), "Map Range = 64"); // the step that was asked for
    EXPECT_EQ(view().MapRange, 1024);
    EXPECT_EQ(view().PrevRange, 1024);
    EXPECT_EQ(view().PrevCenterLon, 95.95F);
    EXPECT_FALSE(halvern().Engine.Ended);
}

TEST_F(DosMap, ADamagedMapIsTold)
{
    Started();
    folder.Put("dosmaps/local.map", "56\n128\n");
    Go(64);
    EXPECT_THAT(station.TakeSaid(), ElementsAre(StartsWith("message stop \"Halvern\" \"A Dos map file error has "
                                                           "occured. local.map Has an error.")));
    EXPECT_THAT(MapsDrawn(), ElementsAre(2));
}

TEST_F(DosMap, AFormatThatIsUnknownIsTold)
{
    Started();
    folder.Put("dosmaps/local.map", "56\n128\n500\n1\n1\n1\n1\nBinary\n");
    Go(64);
    EXPECT_THAT(station.TakeSaid(),
                ElementsAre(Information("Halvern will only work with ASCII and Line Format APRSdos maps. The type of "
                                        "this map is Binary Which is not supported.\""),
                            StartsWith(Information("Dos Map file not found."))));
    EXPECT_THAT(MapsDrawn(), ElementsAre(2));
}

TEST_F(DosMap, AnEmptyListIsTold)
{
    Started();
    folder.Put("maplist/maplist1.hvn", "");
    Go(64);
    EXPECT_THAT(station.TakeSaid(),
                ElementsAre(Information("For your map center and map range no Dos Map was found in the " + Folder() +
                                        "maplist1.hvn file. You may have to edit maplist1.hvn file to make the map you "
                                        "are trying to display work." +
                                        draws)));
    EXPECT_THAT(MapsDrawn(), ElementsAre(2));
}

TEST_F(DosMap, WithoutTheLastMapTheProgramEnds)
{
    Started();
    Remove("dosmaps/usa.map");
    Remove("dosmaps/local.map");
    Go(64);
    EXPECT_THAT(station.TakeSaid(),
                ElementsAre(StartsWith(Information("Dos Map file not found.")),
                            StartsWith("message stop \"Halvern\" \"Dos Map usa.map not found. You may have deleted it "
                                       "from the " +
                                       Folder() +
                                       "dosmaps directory. Halvern will now close when you click on the ok butto.")));
    EXPECT_TRUE(halvern().Engine.Ended);
}

TEST_F(DosMap, WithoutTheListTheProgramEnds)
{
    Started();
    Remove("maplist/maplist1.hvn");
    Go(64);
    EXPECT_THAT(station.TakeSaid(),
                ElementsAre(StartsWith(Information("The Dos Map Maplist file maplist1.hvn is not found. Halvern will "
                                                   "now close when you click on the ok button."))));
    EXPECT_THAT(MapsDrawn(), IsEmpty());
    EXPECT_TRUE(halvern().Engine.Ended);
}

TEST_F(DosMap, WithoutTheWorldTheViewGoesToTheCountry)
{
    Started();
    Remove("dosmaps/world.map");
    Go(8000);
    EXPECT_THAT(station.TakeSaid(),
                ElementsAre(StartsWith(Information("The Dos map file world.map is not found. Halvern will now try to "
                                                   "display the usa.map at 1024 map range."))));
    EXPECT_THAT(MapsDrawn(), ElementsAre(3, 2)); // the redraw within, by the list, and then the one around it
    EXPECT_EQ(main().ScaleCombo.Text(), "Map Range = 1024");
    EXPECT_EQ(view().MapCenterLon, 95.95F);
    Remove("dosmaps/usa.map");
    Go(8000);
    EXPECT_THAT(station.TakeSaid(),
                ElementsAre(HasSubstr("world.map"), StartsWith("message stop \"Halvern\" \"usa.map is not found. "
                                                               "Halvern will now close when you click on the ok "
                                                               "button.")));
    EXPECT_TRUE(halvern().Engine.Ended);
}

// --- the first activation --------------------------------------------------------------------------------------------

TEST_F(DosMap, TheFirstActivationDrawsOnceAndPutsTheOwnStationFirst)
{
    ShowMap();
    EXPECT_THAT(MapsDrawn(), ElementsAre(3));
    EXPECT_EQ(main().ScaleCombo.Text(), "Map Range = 1024");
    const auto& stations = halvern().PositionFrm.PosLst;
    ASSERT_EQ(stations.Count(), 1);
    EXPECT_THAT(stations.Row(0), StartsWith("Q0OWN     =010000z4049.14N/07308.41W-PHG5130"));
    EXPECT_THAT(halvern().StatusFrm.StatusLst.Row(0), StartsWith("Q0OWN     >010000zhere"));
    EXPECT_EQ(halvern().HeardFrm.HeardGrid.Cell(1, 0), "Q0OWN");
    ShowMap();
    EXPECT_THAT(MapsDrawn(), IsEmpty());
    EXPECT_EQ(stations.Count(), 1);
    EXPECT_FALSE(view().MapBusy || view().MapSyncPending);
}

TEST_F(DosMap, AFirstRunDrawsTheCountryWithoutAWord)
{
    halvern().Engine.ConfigLoaded = false;
    ShowMap();
    EXPECT_THAT(MapsDrawn(), ElementsAre(2));
    EXPECT_EQ(main().dMapTxt.Text(), "USA.MAP");
}

TEST_F(DosMap, TheFirstActivationHasItsOwnWords)
{
    folder.Put("maplist/maplist1.hvn", "");
    Remove("dosmaps/usa.map");
    ShowMap();
    EXPECT_THAT(station.TakeSaid(),
                ElementsAre(Information("For your map center and map range no Dos Map was found in the " + Folder() +
                                        "maplist1.hvn file If may have to edit maplist1.hvn to make the map you are "
                                        "trying to display work." +
                                        draws),
                            "bell"));
    EXPECT_FALSE(halvern().Engine.Ended);
}

TEST_F(DosMap, ADamagedFirstMapIsLeftAsItIs)
{
    folder.Put("dosmaps/local.map", "56\n");
    ShowMap();
    EXPECT_THAT(station.TakeSaid(), ElementsAre("bell"));
    EXPECT_THAT(MapsDrawn(), IsEmpty());
}

TEST_F(DosMap, AWindowThatTheProgramEndsInPutsNothingInTheStores)
{
    Remove("maplist/maplist1.hvn");
    ShowMap();
    EXPECT_TRUE(halvern().Engine.Ended);
    EXPECT_EQ(halvern().PositionFrm.PosLst.Count(), 0);
}

} // namespace
} // namespace halvern::test
