// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/MapStation.h"

#include "view/Plotting.h"
#include "view/SymbolFile.h"

namespace halvern::test {
namespace {

TEST(SymbolFile, TablesCodesAndOverlays)
{
    const struct {
        int table, code;
        const char* file;
    } cases[] = {{'/', '-', "1\\045"},    {'/', 32, "NG"},         {'/', 33, "1\\033"},   {'/', 123, "1\\123"},
                 {'/', '|', "NG"},        {'/', 125, "1\\125"},    {'/', 126, "NG"},      {'\\', '#', "NG"},
                 {'\\', '$', "2\\036"},   {'\\', 'W', "NG"},       {'\\', 'w', "2\\119"}, {'1', '#', "2\\035_49"},
                 {'A', '#', "2\\035_65"}, {'Z', 'z', "2\\122_90"}, {'A', '-', "NG"}};
    for (const auto& [table, code, file] : cases)
        EXPECT_EQ(SymbolFileName("/home/Me", table, code),
                  file == std::string("NG") ? file : std::string("/home/Me\\SYMBOLS\\TABLE") + file + ".GIF")
            << table << " " << code;
    for (const int table : {int('a'), int('&'), 0}) EXPECT_EQ(SymbolFileName("/home/Me", table, '#'), "") << table;
    int overlays = 0;
    for (int code = 0; code < 256; ++code) overlays += SymbolFileName("", '5', code) != "NG";
    EXPECT_EQ(overlays, 16);
}

class Plotting : public MapStation {
protected:
    Plotting()
    {
        ShowMap();
        GoToView(halvern(), 40, 73, 64);
    }
    const PictureSprite& Picture(int i) { return halvern().MapFrm.SymPic(i); }
    const LabelSprite& Label(int i) { return halvern().MapFrm.SymLbl(i); }
    /// Where a station's pair must stand in the present view: 16 by 12 pixels on a map of 400 by 300.
    void ExpectPair(int i, float latitude, float longitude)
    {
        const double wide = (view().MapLeftLon - view().MapRightLon) * 16 / 400;
        const double high = (view().MapTopLat - view().MapBottomLat) * 12 / 300;
        EXPECT_NEAR(Picture(i).top, latitude + high, 1e-4);
        EXPECT_NEAR(Picture(i).left, longitude + wide / 2, 1e-4);
        EXPECT_NEAR(Label(i).left, longitude + wide, 1e-4);
        EXPECT_NEAR(Label(i).top, latitude, 1e-4);
    }
};

TEST_F(Plotting, AMoveOfOneStationTouchesOnePair)
{
    station.Hear("Q1ABC>APRS:!4030.00N/07330.00W-");
    std::vector<int> rows;
    const int watch = halvern().MapFrm.SymPic.Watch([&](const Change& change) { rows.push_back(change.row); });
    MapsDrawn();
    station.Hear("Q1ABC>APRS:!4031.00N/07330.00W-");
    halvern().MapFrm.SymPic.Unwatch(watch);
    EXPECT_EQ(rows, std::vector<int>{1});
    EXPECT_TRUE(station.map.Take().empty());
    ExpectPair(1, 40 + 31 / 60.0F, 73.5);
    EXPECT_EQ(Label(1).colour, colour::Cyan);
}

TEST_F(Plotting, ColoursTellWhatAStationWasHeardBy)
{
    int i = 0;
    const std::pair<char, int> cases[] = {{'=', 7}, {'@', 7}, {'\'', 7}, {'!', 8}, {'/', 8},
                                          {'$', 8}, {'`', 8}, {';', 5},  {')', 5}, {'>', 4}};
    for (const auto& [type, number] : cases) {
        ++i;
        halvern().Engine.SourceCall = "Q1ABC";
        NewSymbol(halvern(), i, std::string(1, type) + "rest", S() + "/symbols/table1/045.gif", "Q", 1, 2);
        EXPECT_EQ(Label(i).colour, number) << type;
    }
    halvern().Engine.SourceCall = "Q0OWN";
    NewSymbol(halvern(), i, ";rest", S() + "/symbols/table1/045.gif", "object   ", 1, 2);
    EXPECT_EQ(Label(i).colour, 6);
    EXPECT_EQ(view().StationPlot[i].Caption, "object");
}

TEST_F(Plotting, AStationWithoutAPictureIsNotFiledAndItsPictureToldOnce)
{
    folder.Put("symbols/table1/097.gif", "no picture at all, only text");
    Said();
    for (const char* symbol : {"b", "a", "b"}) // missing, and not a picture
        station.Hear(std::string("Q1ABC>APRS:!4030.00N/07330.00W") + symbol);
    EXPECT_EQ(halvern().PositionFrm.PosLst.Count(), 1);
    EXPECT_THAT(Said(),
                ElementsAre(HasSubstr("\"Error # 53 File not found: '" + S() + "/symbols/table1/098.GIF'\""),
                            HasSubstr("\"Error # 481 Invalid picture: '" + S() + "/symbols/table1/097.gif'\"")));
    EXPECT_FALSE(halvern().MapFrm.SymPic.Exists(1));
    EXPECT_THROW(NewSymbol(halvern(), 0, "!", S() + "/symbols/none.gif", "Q9BAD", 1, 2), RuntimeFailure);
    EXPECT_NE(halvern().Map.StationPlot.at(0).Caption, "Q9BAD") << "a row without its picture keeps its record";
    EXPECT_THROW(NewSymbol(halvern(), LastStation + 1, "!", S() + "/symbols/table1/045.gif", "Q", 1, 2),
                 RuntimeFailure);
    station.Hear("Q1ABC>APRS:!4030.00N/07330.00W-");
    ExpectPair(1, 40.5, 73.5);
}

} // namespace
} // namespace halvern::test
