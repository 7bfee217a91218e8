// SPDX-License-Identifier: GPL-3.0-or-later
// Stations of ours that talk to each other by frames on real sockets.
#include <gmock/gmock.h>

#include "support/qt/Application.h"
#include "support/qt/Channel.h"

namespace halvern::test {
namespace {

using testing::ElementsAre;
using Rows = std::vector<std::string>;

struct OnTheAir : testing::Test {
    /// Waits for a row among a station's own messages.
    static bool Shows(const ChannelStation& station, const std::string& row)
    {
        return RunUntil([&] { return station.messages.IndexOf(row) != NotFound; });
    }
    Channel channel;
};

/// Ten stations in a row, each of which hears its neighbours alone.
TEST_F(OnTheAir, EightDigipeatersCarryAMessageAndItsAck)
{
    std::vector<std::unique_ptr<ChannelStation>> chain;
    std::string there, back;
    for (int i = 0; i < 10; ++i) {
        const auto call = std::string("Q0DG") + static_cast<char>('A' + i);
        chain.push_back(std::make_unique<ChannelStation>(channel, call));
        if (i == 0 || i == 9) continue;
        there += (there.empty() ? "" : ",") + call;
        back = call + (back.empty() ? "" : ",") + back;
    }
    channel.Reaches = [](std::size_t from, std::size_t to) { return from + 1 == to || to + 1 == from; };
    auto &first = *chain.front(), &last = *chain.back();
    first.halvern.MessageFrm.MailUnPath.SetText(there);
    last.halvern.MessageFrm.MailUnPath.SetText(back);
    first.Type("Q0DGJ", "far \xC0\xDB\xE9");
    first.time.Wait(1);
    EXPECT_TRUE(Shows(first, "Q0DGA>Q0DGJ:1.far \xC0\xDB\xE9 MESSAGE RECEIVED"));
    EXPECT_THAT(Station::Rows(last.messages), ElementsAre("Q0DGA>Q0DGJ:1.far \xC0\xDB\xE9"));
    ASSERT_EQ(channel.Lines.size(), 18u) << "nine hops each way";
    EXPECT_EQ(channel.Lines[1], "Q0DGA>APHV01,Q0DGB*,Q0DGC,Q0DGD,Q0DGE,Q0DGF,Q0DGG,Q0DGH,Q0DGI::Q0DGJ    :far "
                                "\xC0\xDB\xE9{1");
    EXPECT_EQ(channel.Lines[17],
              "Q0DGJ>APHV01,Q0DGI*,Q0DGH*,Q0DGG*,Q0DGF*,Q0DGE*,Q0DGD*,Q0DGC*,Q0DGB*::Q0DGA    :ack1");
}

} // namespace
} // namespace halvern::test
