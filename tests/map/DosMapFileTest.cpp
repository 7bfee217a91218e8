// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/DosMapFile.h"

#include "support/MapStation.h"

namespace halvern::test {
namespace {

constexpr auto Head = "50\r\n100\r\n100\r\n1\r\n2\r\n3\r\n4\r\n";

/// Notes a map as "*x,y c" for the start of a line and "x,y c" for the rest.
struct Notes final : MapLines {
    std::string text;
    void Note(const char* mark, double x, double y, int colour)
    {
        text += mark + PlainNumber(x) + "," + PlainNumber(y) + " " + std::to_string(colour) + " ";
    }
    void Start(double x, double y, int colour) override { Note("*", x, y, colour); }
    void LineTo(double x, double y, int colour) override { Note("", x, y, colour); }
};

TEST(DosMapFile, Bodies)
{
    const auto damaged = MapFileEnd::Damaged;
    const struct {
        const char* what;
        std::string body;
        std::string lines;
        MapFileEnd end = MapFileEnd::Marker;
    } cases[] = {
        {"two lines", "ASCII\r\n0,0,11,a, b\r\n100,200\r\n150,200\r\n0,0,2,c\r\n300,400\r\n0,-1\r\n",
         "*99,48 11 98.5,48 11 *97,46 2 "},
        {"behind the end", "ASCII\n0,0,1,a\n100,100\n0,-1\nrubbish", "*99,49 1 "},
        {"items on lines of their own", "ASCII\n0\n0\n1\n100\n100\n0\n-1", "*99,49 1 "},
        {"body on the line of the word", "ASCII,0,0,1,a\n100,100\n0,-1", "*99,49 1 "},
        {"blanks and quotes", " \"ASCII\" \n \"0\", 0 ,1 , a\n 100 ,\"100\"\n\"0\",\"-1\"", "*99,49 1 "},
        {"one offset of 0 is dropped", "ASCII\n0,0,1,a\n0,5\n100,100\n5,0\n200,200\n0,-1", "*99,49 1 98,48 1 "},
        {"00 is a place", "ASCII\n0,0,1,a\n00,100\n0,-1", "*100,49 1 "},
        {"no points", "ASCII\n0,-1", ""},
        {"a colour counts where it is drawn", "ASCII\n0,0,99,a\n0,0,1,b\n100,100\n0,-1", "*99,49 1 "},
        {"a colour that is none", "ASCII\n0,0,16,a\n100,100\n0,-1", "", damaged},
        {"no end", "ASCII\n0,0,1,a\n100,100\n", "*99,49 1 ", damaged},
        {"half a pair", "ASCII\n0,0,1,a\n100", "", damaged},
        {"no polyline at the start", "ASCII\n100,100\n0,0,1,a\n100,100\n0,-1", "", damaged},
        {"a word among offsets", "ASCII\n0,0,1,a\n100,x\n0,-1", "", damaged},
        {"a blank line", "ASCII\n0,0,1,a\n\n100,100\n0,-1", "", damaged},
        {"offsets without bounds", "ASCII\n0,0,1,a\n99999999999,100\n0,-1", "", damaged},
        {"not a number", "ASCII\n0,0,1,a\nnan,inf\n0,-1", "", damaged},
        {"no body", "ASCII", "", damaged},
        {"the other word", "LineFormat\n-1\n", ""},
        // '+' is 16, '<' 33: a = 16 * 16 + 4, b = 33 * 8 + 1
        {"packed", "LineFormat\n4,+<<\n-1", "*97.4,47.35 4 "},
        {"packed, two points, then another line", "LineFormat\r\n4,+<<,,,\r\n5,+<<\r\n-1\r\n",
         "*97.4,47.35 4 97.26,48.63 4 *97.4,47.35 5 "},
        {"packed, a short group", "LineFormat\n4,+<\n-1", "*97.4,47.35 4 "},
        {"packed, one character", "LineFormat\n4,<\n-1", "*94.68,47.35 4 "},
        {"packed, characters below the first", "LineFormat\n4,\x1A\x1A\x1A\n-1", "*100.17,50.01 4 "},
        {"packed, no points", "LineFormat\n4,\n-1", ""},
        {"packed, no end", "LineFormat\n4,+<<\n", "*97.4,47.35 4 ", damaged},
        {"packed, no line", "LineFormat\n4", "", damaged},
        {"another word", "ascii\n0,-1", "", MapFileEnd::UnknownFormat}};
    for (const auto& [what, body, lines, end] : cases) {
        SCOPED_TRACE(what);
        Notes notes;
        std::string format;
        EXPECT_EQ(ReadMapLines(Head + body, notes, format), end);
        EXPECT_EQ(notes.text, lines);
    }
}

TEST(DosMapFile, Heads)
{
    const std::string body = "ASCII\n0,0,1,a\n10,10\n0,-1";
    const auto damaged = MapFileEnd::Damaged;
    const std::pair<std::string, MapFileEnd> cases[] = {
        {"50\n100\n100\n1\n2\n3\n4\n", MapFileEnd::Marker},
        {"50,top\n 100 west edge\n+100\n1.5\n-2e3\n3\n4,5,6\n", MapFileEnd::Marker},
        {"50\n100\n0\n1\n2\n3\n4\n", damaged},
        {"50\n100\n1e10\n1\n2\n3\n4\n", damaged},
        {"1e39\n100\n100\n1\n2\n3\n4\n", damaged},
        {"nan\n100\n100\n1\n2\n3\n4\n", damaged},
        {"50\n100\n100\n1\n2\n3\n40000\n", damaged},
        {"north\n100\n100\n1\n2\n3\n4\n", damaged},
        {"\n100\n100\n1\n2\n3\n4\n", damaged},
        {"50\n100\n100\n", damaged}};
    for (const auto& [head, end] : cases) {
        SCOPED_TRACE(head);
        Notes notes;
        std::string format;
        EXPECT_EQ(ReadMapLines(head + body, notes, format), end);
    }
}

TEST(DosMapList, TheNearestMapInPlainDegrees)
{
    const auto list = ListOf({"far     800000N1700000W", "first   410000N0740000W", "second  410000N0740000W",
                              "south   410000S0740000W", "east    410000N0740000E", "wide    400500N0730025W"});
    const struct {
        float latitude, longitude;
        const char* name;
    } cases[] = {{41, 74, "first"},          {40.9F, 74.2F, "first"}, {-41, 74, "south"}, {41, -74, "east"},
                 {40.05F, 73.0025F, "wide"}, {40.4F, 73.45F, "wide"}, {89, 179, "far"}};
    for (const auto& [latitude, longitude, name] : cases)
        EXPECT_EQ(NearestMap(list, 5, latitude, longitude), name) << latitude << " " << longitude;
}

} // namespace
} // namespace halvern::test
