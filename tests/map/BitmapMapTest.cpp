// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/BitmapMap.h"

#include "map/Calibration.h"
#include "support/MapStation.h"

namespace halvern::test {
namespace {

TEST(Calibration, BothKindsOfFile)
{
    using Cases = std::vector<std::pair<const char*, std::optional<Corners>>>;
    const auto text = [](const std::optional<Corners>& c) {
        std::string numbers;
        for (const auto side : {&Corners::top, &Corners::left, &Corners::bottom, &Corners::right})
            numbers += c ? PlainNumber(*c.*side) + " " : "bad ";
        return numbers;
    };
    const Cases txt{{"41.5\r\n-74\r\n40.25\r\n-72.5\r\n", Corners{41.5, 74, 40.25, 72.5}},
                    {" 1 , 2 , -3 , 4", Corners{1, -2, -3, -4}},
                    {"41.5\r\n-74\r\n40.25\r\n", {}},
                    {"41.5N\r\n-74\r\n40.25\r\n1\r\n", {}},
                    {"1e99\r\n-74\r\n40.25\r\n1\r\n", {}},
                    {"10,-10,10,-10", {}},
                    {"", {}}};
    for (const auto& [file, corners] : txt) EXPECT_EQ(text(ReadTxtCalibration(file)), text(corners)) << file;
    const Cases inf{{"41.30.0N,74.15.00W\r\n40.15N,72.30w\r\n", Corners{41.5, 74.25, 40.25, 72.5}},
                    {"1.30S,2.0E\n3.0s, 4.6E\n", Corners{-1.5, -2, -3, -4.1}},
                    {"41.30N,74.15W\r\n40.15N\r\n", {}},
                    {"41,74.15W\r\n40.15N,1.2W\r\n", {}},
                    {"N.41,74.15W\r\n40.15N,1.2W\r\n", {}},
                    {"-4.30N,74.15W\r\n40.15N,1.2W\r\n", {}},
                    {"4.,74.15W\r\n40.15N,1.2W\r\n", {}}};
    for (const auto& [file, corners] : inf) EXPECT_EQ(text(ReadInfCalibration(file)), text(corners)) << file;
}

class BitmapMap : public MapStation {
protected:
    BitmapMap()
    {
        folder.Put("bitmap/tall.gif", GifOf(50, 100));
        folder.Put("bitmap/tall.txt", "42\n-74\n41\n-72\n");
        folder.Put("bitmap/wide.old.gif", GifOf(100, 50));
        folder.Put("bitmap/WIDE.TXT", "12\n-14\n11\n-12\n");
        folder.Put("bitmap/wide.inf", "1.0N,1.0W\n2.0N,2.0W\n");
        ShowMap();
        station.map.Take();
        Said();
    }
};

TEST_F(BitmapMap, ThePictureGivesTheView)
{
    MapCommand(halvern(), "PanMap");
    main().BitMapMenu.Click();
    EXPECT_THAT(Drawn(), ElementsAre("clear", StartsWith("picture "), "frame 74,42 72,41"));
    EXPECT_EQ(main().ScaleTxt.Text(), "Map Range = 32");
    EXPECT_EQ(view().MapRange, 32);
    EXPECT_EQ(view().MapCenterLon, 73);
    EXPECT_FALSE(main().PanMapMenu.Checked() || main().PanMapMenu.Enabled() || main().Toolbar1Button(1).Enabled());
    EXPECT_EQ(halvern().MapFrm.Map1.MousePointer(), Pointer::Arrow);
    EXPECT_TRUE(main().BitMapCombo.Visible() && main().ScaleTxt.Visible() && !main().ScaleCombo.Visible());
    EXPECT_TRUE(halvern().MapFrm.SymLbl(0).border);
    main().DosMapMenu.Click();
    EXPECT_TRUE(main().PanMapMenu.Enabled() && main().Toolbar1Button(3).Enabled());
    EXPECT_THAT(Drawn(), IsEmpty());
    main().BitMapMenu.Click(); // the same picture again
    EXPECT_EQ(Drawn().size(), 3U);
}

TEST_F(BitmapMap, ABadCalibrationIsToldAndTheViewStays)
{
    MapCommand(halvern(), "BitMap");
    folder.Put("bitmap/tall.txt", "42\n");
    DrawBitmapMap(halvern());
    station.files.Remove(S() + "/bitmap/tall.txt");
    DrawBitmapMap(halvern());
    EXPECT_THAT(
        Said(),
        ElementsAre("message stop \"Halvern\" \"tall.TXT or .INF file is corrupt. To fix this error please edit the "
                    "tall.TXT or .INF file and fix the format error.\"",
                    "message stop \"Halvern\" \"tall Is missing its .TXT or .INF file. To fix this error please copy "
                    "the tall.TXT or .INF file to the \\\\halvern\\\\bitmap sub-directory or remove tall from the "
                    "\\\\halvern\\\\bitmap sub-directory.\""));
    EXPECT_EQ(view().MapTopLat, 42);
}

TEST_F(BitmapMap, APictureThatCantBeShownIsToldAndTheStationsStandWhereTheyAre)
{
    MapCommand(halvern(), "BitMap");
    folder.Put("bitmap/wide.old.gif", "GIF89a");
    main().BitMapCombo.Select(main().BitMapCombo.IndexOf("wide.old.gif"));
    EXPECT_THAT(Said(), ElementsAre("message critical \"Halvern\" \"Error # 481 Invalid picture: '" + S() +
                                    "/bitmap/wide.old.gif'\""));
    EXPECT_EQ(halvern().MapFrm.Map1.Frame().top, 12);
}

TEST_F(BitmapMap, WithoutAPictureTheKindStays)
{
    for (const char* name : {"tall.gif", "wide.old.gif"}) station.files.Remove(S() + "/bitmap/" + name);
    EXPECT_THROW(MapCommand(halvern(), "BitMap"), RuntimeFailure);
    EXPECT_TRUE(main().DosMapMenu.Checked());
}

TEST(PictureSizes, OfEveryKind)
{
    using namespace std::string_literals;
    const struct {
        std::string bytes;
        int width, height;
    } cases[] = {
        {"BM"s + std::string(16, '\0') + "\x2C\x01\0\0\x38\xFF\xFF\xFF"s, 300, 200}, // stored from the top down
        {"\xFF\xD8\xFF\xE0\0\x04xx\xFF\xC2\0\x11\x08\0\xC8\x01\x2C"s, 300, 200},
        {"\xFF\xD8\xFF\xE0\0\0\xFF\xE0\0\0\xFF"s, 0, 0},
        {"\xFF\xD8"s, 0, 0},
        {"\xFF\xD8\xFF\xC4\0\x11\x08\0\xC8\x01\x2C"s, 0, 0}};
    for (const auto& [bytes, width, height] : cases) {
        const auto size = PictureSize(bytes).value_or(PixelSize{});
        EXPECT_EQ(size.width, width);
        EXPECT_EQ(size.height, height);
    }
}

} // namespace
} // namespace halvern::test
