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

TEST_F(OnTheAir, AMessageIsRepeatedToADeafPartnerUntilItsAck)
{
    const std::string odd = "\xC0\xDB\xDC\xDD\x80 gr\xFC\xDF\xFF";
    ChannelStation one(channel, "Q0AAA"), two(channel, "Q0BBB");
    channel.Reaches = [](std::size_t, std::size_t to) { return to != 1; };
    one.Type("Q0BBB", odd);
    for (const int wait : {1, 4000, 8000, 16000}) one.time.Wait(wait);
    RunUntil([&] { return channel.Lines.size() >= 4; });
    EXPECT_EQ(channel.Lines, Rows(4, "Q0AAA>APHV01::Q0BBB    :" + odd + "{1"));
    EXPECT_EQ(two.messages.Count(), 0);

    channel.Reaches = [](std::size_t, std::size_t) { return true; };
    one.time.Wait(32000);
    EXPECT_TRUE(Shows(one, "Q0AAA>Q0BBB:1." + odd + " MESSAGE RECEIVED"));
    EXPECT_THAT(Station::Rows(two.messages), ElementsAre("Q0AAA>Q0BBB:1." + odd));
    EXPECT_EQ(channel.Lines.back(), "Q0BBB>APHV01::Q0AAA    :ack1");

    two.Type("Q0AAA", "back");
    two.time.Wait(1);
    EXPECT_TRUE(Shows(two, "Q0BBB>Q0AAA:1.back MESSAGE RECEIVED"));
    const auto before = channel.Lines.size();
    for (auto* station : {&one, &two}) station->time.Wait(3600 * 1000);
    two.Type("Q0AAA", "more");
    two.time.Wait(1);
    EXPECT_TRUE(Shows(two, "Q0BBB>Q0AAA:2.more MESSAGE RECEIVED"));
    EXPECT_EQ(channel.Lines.size(), before + 2) << "what is acked is not sent again";
}

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
