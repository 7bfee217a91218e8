// SPDX-License-Identifier: GPL-3.0-or-later
#include "protocol/Ax25.h"

#include "ports/Kiss.h"
#include "support/StationTest.h"

namespace halvern::test {
namespace {

using namespace std::string_literals;

std::string Shifted(std::string_view call)
{
    std::string bytes;
    for (const char character : Padded(call, 6)) bytes += static_cast<char>(character << 1);
    return bytes;
}

/// Addresses with their SSID bytes, and what follows them.
std::string Frame(std::initializer_list<std::pair<std::string_view, int>> addresses, const std::string& rest)
{
    std::string frame;
    for (const auto& [call, ssid] : addresses) frame += Shifted(call) + static_cast<char>(ssid);
    return frame + rest;
}

TEST(Ax25, BuildsTheBytesThatTheStandardDraws)
{
    const auto head = "\xC0\0"s;
    const auto tail = "\x03\xF0x\xC0"s;
    const std::tuple<const char*, const char*, const char*, std::string> cases[] = {
        {"APHV01", "N0CALL", "", Frame({{"APHV01", 0xE0}, {"N0CALL", 0x61}}, "")},
        {"APHV01", "N0CALL", "WIDE2-2", Frame({{"APHV01", 0xE0}, {"N0CALL", 0x60}, {"WIDE2", 0x65}}, "")},
        {"AP-3", "A-15", "N0CALL*,WIDE2-1", Frame({{"AP", 0xE6}, {"A", 0x7E}, {"N0CALL", 0xE0}, {"WIDE2", 0x63}}, "")},
        {"AP", "A", "TOOLONG-1*", Frame({{"AP", 0xE0}, {"A", 0x60}, {"TOOLON", 0xE3}}, "")},
        // the mark costs the entry its last character, wherever it stands
        {"AP", "A", "B*CD", Frame({{"AP", 0xE0}, {"A", 0x60}, {"B*C", 0xE1}}, "")},
        {"", "", ",", Frame({{"", 0xE0}, {"", 0x60}, {"", 0x60}, {"", 0x61}}, "")},
    };
    for (const auto& [dest, src, path, addresses] : cases) {
        const auto built = BuildFrame(dest, src, path, "x");
        EXPECT_EQ(built.refusal, nullptr) << path;
        EXPECT_EQ(built.bytes, head + addresses + tail) << path;
    }
}

TEST(Ax25, RefusesWhatDoesNotFitInAFixedOrder)
{
    const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
        {"AP-16", "TOOLONG", "", "Your Destination SSID"},
        {"TOOLONG", "A-16", "", "Your Destination Call Sign"},
        {"AP", "TOOLONG-16", "", "Your MYCall SSID"},
        {"AP", "TOOLONG", "A-16", "Your MyCall Sign"},
        {"AP", "A", "1,2,3,4,5,6,7,8,9-16", "You cannot have more than 8"},
        {"AP", "A", "1,2-16,3", "One or more of your Digipeater SSID"},
        {"AP", "A-99999999999999999999", "", "Your MYCall SSID"},
        {"AP", "A", "B--49", "One or more of your Digipeater SSID"}};
    for (const auto& [dest, src, path, words] : cases) {
        const auto built = BuildFrame(dest, src, path, "x");
        ASSERT_NE(built.refusal, nullptr) << words;
        EXPECT_THAT(built.refusal, StartsWith(words));
        EXPECT_EQ(built.bytes, "");
    }
}

TEST(Ax25, ReadsWhatItsNeighboursSend)
{
    const auto info = "\x03\xF0info"s;
    const std::pair<std::string, std::string> cases[] = {
        {Frame({{"APHV01", 0xE0}, {"N0CALL", 0x61}}, info), "N0CALL>APHV01:info"},
        {Frame({{"AP", 0xFE}, {"A", 0x73}}, info), "A-9>AP-15:info"},
        {Frame({{"AP", 0xE0}, {"A", 0x60}, {"B", 0x61}}, info), "A>AP,B:info"},
        {Frame({{"AP", 0xE0}, {"A", 0x60}, {"B", 0xE2}, {"C", 0xE0}, {"D", 0x65}}, info), "A>AP,B-1,C*,D-2:info"},
        {Frame({{"AP", 0xE0}, {"A", 0x60}, {"B", 0xE3}}, info), "A>AP,B-1*:info"},
        // reserved bits that are clear give no SSID
        {Frame({{"AP", 0x00}, {"A", 0x01}}, info), "A>AP:info"},
        {Frame({{"AP", 0xE0}, {"A", 0x61}}, "\x03\xF0"), "A>AP:"},
        {Frame({{"AP", 0xE0}, {"A", 0x61}}, "\x03\xF0\xDB\xDC\xDB\xDD\xDBx\xDB"), "A>AP:\xC0\xDB"},
        {Frame({{"AP", 0xE0}, {"A", 0x61}}, "\x03\xCC\xF0nfo"), "NG"},
        {Frame({{"AP", 0xE0}, {"A", 0x61}}, "\x3F\xF0info"), "NG"},
        {Frame({{"AP", 0xE0}, {"A", 0x60}}, "x\x03\xF0info"), "NG"},
        // the first 3 decides, also one inside an address
        {Frame({{"AP", 0xE0}, {"A", 0x60}, {"B", 0x61}}, info).replace(16, 1, "\x03"), "NG"},
        // the PID is looked for by itself
        {Frame({{"AP", 0xE0}, {"A", 0x61}}, "\x03" + "123456"s + "\x7F\xF0info"), "A>AP:23456\x7F\xF0info"},
        // eight digipeaters and no more
        {FrameOf("Q0AAA>AP,1,2,3,4,5,6,7,8:x").substr(2), "Q0AAA>AP,1,2,3,4,5,6,7,8:x\xC0"},
        {FrameOf("Q0AAA>AP,1,2,3,4,5,6,7,8:x").substr(2).insert(70, Shifted("9") + '\x60'), "NG"},
        {"short", "NG"},
        // two escapes in front of the control byte: what is left is too short for the addresses that were counted
        {Frame({{"AP", 0xE0}, {"A", 0x60}}, "\xDB\xDC\xDB\xDC\xDB\xDC\xDB\x03\xF0"), "NG"},
    };
    for (const auto& [frame, text] : cases) {
        const auto read = ReadFrame(frame);
        EXPECT_EQ(read ? TextOf(*read) : "NG", text);
    }
}

} // namespace
} // namespace halvern::test
