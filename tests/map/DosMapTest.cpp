// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/MapStation.h"

#include "map/DosMap.h"

namespace halvern::test {
namespace {

class DosMap : public MapStation {
protected:
    void Remove(const std::string& name) { EXPECT_TRUE(station.files.Remove(S() + "/" + name)); }
    void Go(double range)
    {
        MapsDrawn();
        Said();
        GoToView(halvern(), 40, 73, range);
    }
    /// A message with these words at its beginning, "FOLDER" for the program's.
    testing::Matcher<std::string> Message(const std::string& icon, std::string text) const
    {
        if (const auto at = text.find("FOLDER"); at != std::string::npos) text.replace(at, 6, S() + R"(\\)");
        return StartsWith("message " + icon + " \"Halvern\" \"" + text);
    }
    const std::string draws = " Halvern will now draw the usa.map at 1024 map range.\"";
};

TEST_F(DosMap, TheRangeChoosesAmongWorldAndList)
{
    ShowMap();
    const struct {
        double range;
        int colour;
        const char* name;
    } cases[] = {{8000, 1, "WORLD.MAP"}, {4096, 1, "WORLD.MAP"}, {2048, 3, "local.map"}, {1, 3, "local.map"}};
    for (const auto& [range, colour, name] : cases) {
        Go(range);
        EXPECT_THAT(MapsDrawn(), ElementsAre(colour)) << range;
        EXPECT_EQ(main().dMapTxt.Text(), name);
    }
    EXPECT_THAT(Said(), IsEmpty());
}

TEST_F(DosMap, WhatIsMissingOrDamagedIsToldAndTheCountryDrawn)
{
    const auto lost = Message("information", "Dos Map file not found. You may have deleted it from the FOLDER"
                                             "dosmaps directory." +
                                                 draws);
    const struct {
        std::vector<std::pair<std::string, const char*>> files; ///< what they hold now, nullptr: they are gone
        std::vector<testing::Matcher<std::string>> said;
        bool ended = false;
    } cases[] = {
        {{{"dosmaps/local.map", nullptr}}, {lost}},
        {{{"dosmaps/local.map", "56\n128\n"}},
         {Message("stop", "A Dos map file error has occured. local.map Has an error.")}},
        {{{"dosmaps/local.map", "56\n128\n500\n1\n1\n1\n1\nBinary\n"}},
         {Message("information",
                  "Halvern will only work with ASCII and Line Format APRSdos maps. The type of this map is "
                  "Binary Which is not supported.\""),
          lost}},
        {{{"maplist/maplist1.hvn", ""}},
         {Message("information",
                  "For your map center and map range no Dos Map was found in the FOLDERmaplist1.hvn file. "
                  "You may have to edit maplist1.hvn file to make the map you are trying to display work." +
                      draws)}},
        {{{"dosmaps/local.map", nullptr}, {"dosmaps/usa.map", "56\n128\n500\n1\n1\n1\n1\nASCII\n0,0,2,cut\n9,5\n"}},
         {lost, Message("stop", "A Dos map file error has occured. USA.MAP Has an error.")}},
        {{{"dosmaps/local.map", nullptr}, {"dosmaps/usa.map", nullptr}},
         {lost, Message("stop", "Dos Map usa.map not found. You may have deleted it from the FOLDERdosmaps directory. "
                                "Halvern will now close when you click on the ok butto.")},
         true},
        {{{"maplist/maplist1.hvn", nullptr}},
         {Message("information", "The Dos Map Maplist file maplist1.hvn is not found. Halvern will now close when you "
                                 "click on the ok button.")},
         true}};
    ShowMap();
    for (const auto& each : cases) {
        PutFiles();
        halvern().Engine.Ended = false;
        for (const auto& [name, bytes] : each.files) bytes == nullptr ? Remove(name) : folder.Put(name, bytes);
        Go(64);
        EXPECT_THAT(Said(), testing::ElementsAreArray(each.said));
        EXPECT_EQ(MapsDrawn(), each.ended ? std::vector<int>{} : std::vector<int>{2});
        EXPECT_EQ(halvern().Engine.Ended, each.ended);
        if (each.ended) continue;
        EXPECT_EQ(main().ScaleCombo.Text(), "Map Range = 64") << "the step that was asked for";
        EXPECT_EQ(view().MapRange, 1024);
        EXPECT_EQ(view().PrevRange, 1024);
        EXPECT_EQ(view().PrevCenterLon, 95.95F);
    }
}

TEST_F(DosMap, WithoutTheWorldTheViewGoesToTheCountry)
{
    ShowMap();
    Remove("dosmaps/world.map");
    Go(8000);
    EXPECT_THAT(Said(), ElementsAre(Message("information", "The Dos map file world.map is not found. Halvern will now "
                                                           "try to display the usa.map at 1024 map range.")));
    EXPECT_THAT(MapsDrawn(), ElementsAre(3, 2)); // the redraw within, by the list, and then the one around it
    EXPECT_EQ(main().ScaleCombo.Text(), "Map Range = 1024");
    EXPECT_EQ(view().MapCenterLon, 95.95F);
    Remove("dosmaps/usa.map");
    Go(8000);
    EXPECT_THAT(Said(),
                ElementsAre(HasSubstr("world.map"), Message("stop", "usa.map is not found. Halvern will now close "
                                                                    "when you click on the ok button.")));
    EXPECT_TRUE(halvern().Engine.Ended);
}

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

} // namespace
} // namespace halvern::test
