// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/EndMark.h"

#include <vector>

#include <gmock/gmock.h>

namespace halvern {
namespace {

using Strings = std::vector<std::string>;

TEST(EndMark, CutsEventsHoweverTheStreamArrives)
{
    const std::string fitting(TextLines.longest - 1, 'a'), endless(100000, 'a');
    const struct {
        const char* what;
        Framing framing;
        std::string stream;
        Strings events;
    } cases[] = {
        {"lines, the last one unfinished", TextLines, "one\r\ntwo\nthr", {"one\r\n", "two\n"}},
        {"nothing between the marks", TextLines, "\n\n\none\n\n", {"one\n"}},
        {"the longest line", TextLines, fitting + "\none\n", {fitting + "\n", "one\n"}},
        {"a line too long", TextLines, "one\na" + fitting + "\ntwo\n", {"one\n", "two\n"}},
        {"a line far too long", TextLines, endless + "\none\n" + endless, {"one\n"}},
        {"frames with FENDs of their own", KissFrames, "\xC0 one\xC0\xC0 two\xC0", {"\xC0 one\xC0", "\xC0 two\xC0"}},
        {"frames that share a FEND", KissFrames, "\xC0 one\xC0 two\xC0 thr", {"\xC0 one\xC0", "\xC0 two\xC0"}},
        {"a frame too long", KissFrames, "\xC0" + endless + "\xC0 one\xC0", {"\xC0 one\xC0"}},
        {"characters, each behind its byte", LedCharacters, "\x1D>\x1D\x1D\x1D\n", {"\x1D>", "\x1D\x1D", "\x1D\n"}},
        {"characters among other bytes", LedCharacters, "\x1C\x1C\x1DQxy\x1D", {"\x1C", "\x1C", "\x1DQ", "x", "y"}},
        {"FENDs alone", KissFrames, std::string(100000, FrameEnd), {}},
    };
    for (const auto& each : cases)
        for (const std::size_t length : {std::size_t{1}, std::size_t{3}, each.stream.size()}) {
            EndMarkCutter cutter(each.framing);
            Strings events;
            for (std::size_t i = 0; i < each.stream.size(); i += length) {
                cutter.Take(std::string_view(each.stream).substr(i, length));
                while (auto event = cutter.Next()) events.push_back(*event);
            }
            EXPECT_EQ(events, each.events) << each.what << ", " << length << " bytes at a time";
            EXPECT_LE(cutter.Rest().size(), each.framing.longest) << each.what;
        }
}

} // namespace
} // namespace halvern
