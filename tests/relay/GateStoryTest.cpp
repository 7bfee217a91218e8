// SPDX-License-Identifier: GPL-3.0-or-later
// Two gates, three stations around them and one far away on the Internet, for an hour: one radio channel, one server.
#include <deque>
#include <map>
#include <memory>
#include <set>

#include "support/GateTest.h"
#include "transmit/Send.h"

namespace halvern::test {
namespace {

constexpr int StepMs = 250;
constexpr int TxDelayMs = 300;
constexpr int HourMs = 3600000;
constexpr int DoubleMs = 30000; ///< a server hands on a packet once within so long

struct Member {
    explicit Member(const std::string& call) { station.SetUp(), station.SetCall(call); }
    MainForm& Main() { return station.halvern.ConMdiFrm; }
    const std::string& Call() const { return station.halvern.Engine.OwnCall; }
    Station station;
    std::set<std::string> hears;       ///< calls
    std::vector<std::string> sent, to; ///< its lines on the air, in full, and to the server
};

struct Transmission {
    Member* by;
    std::string bytes;
    int end;
};

struct AnHour : testing::Test {
    /// A gate has a hold; it repeats for the alias too, so that what one gate sends reaches the stations around the
    /// other. A station that hears nobody is far away, on the Internet.
    Member& Add(const std::string& call, const std::set<std::string>& hears, int holdSeconds = 0)
    {
        auto& member = *members.emplace_back(std::make_unique<Member>(call));
        member.hears = hears;
        auto& setUp = member.station.halvern.SetUpfrm;
        setUp.LatMintxt.SetText(std::to_string(10 + members.size())); // each at a place of its own
        setUp.UnPath.Add("WIDE1-1");
        if (!hears.empty()) setUp.UnPath.Preselect(setUp.UnPath.Count() - 1);
        setUp.IntDomainCombo.SetText("server");
        if (holdSeconds > 0) {
            member.station.OpenGate();
            setUp.MyAlias = "WIDE1-1";
            setUp.IgateHopOpt.Select(1);
            setUp.IgateTimeLbl.SetNumber(holdSeconds);
            member.Main().Timer2.Start(1);
        } else if (!hears.empty()) {
            member.station.OpenTnc();
        } else {
            member.Main().PortIp.Click();
            member.Main().InternetSoc.Arrived("# server\r\n");
        }
        return member;
    }

    void Step()
    {
        now += StepMs;
        for (auto& member : members) {
            member->station.time.Wait(StepMs);
            Collect(*member);
        }
        while (!channel.empty() && channel.front().end <= now) {
            const auto over = channel.front();
            channel.pop_front();
            for (auto& hearer : members)
                if (hearer->hears.contains(over.by->Call())) hearer->Main().MSComm1.Arrived(over.bytes);
        }
    }
    /// Whoever wants to send waits until the channel is free.
    void Collect(Member& member)
    {
        for (const auto& bytes : member.station.SentBy(member.Main().MSComm1)) {
            const int start = std::max(now, channel.empty() ? 0 : channel.back().end);
            channel.push_back({&member, bytes, start + TxDelayMs + static_cast<int>(bytes.size()) * 8000 / 1200});
            member.sent.push_back(LineOfFrame(bytes));
        }
        for (auto line : member.station.SentBy(member.Main().InternetSoc)) {
            if (line.starts_with("user ")) continue;
            ASSERT_TRUE(line.ends_with("\r\n"));
            line.resize(line.size() - 2);
            member.to.push_back(line);
            Serve(member, line);
        }
    }
    /// As servers do: a packet once, with the way it came in, to everybody but who sent it.
    void Serve(const Member& member, const std::string& line)
    {
        const auto colon = line.find(':');
        const auto packet = line.substr(0, line.find(',')) + line.substr(colon);
        if (const auto known = served.find(packet); known != served.end() && now - known->second < DoubleMs) return;
        served[packet] = now;
        const auto way = Holds(line.substr(0, colon), "TCPIP*") ? ",qAC,SERVER" : ",qAR," + member.Call();
        for (auto& other : members) {
            if (other.get() == &member || !other->Main().InternetSoc.Connected()) continue;
            other->Main().InternetSoc.Arrived(line.substr(0, colon) + way + line.substr(colon) + "\r\n");
        }
    }

    std::vector<std::unique_ptr<Member>> members;
    std::deque<Transmission> channel;
    std::map<std::string, int> served;
    int now = 0;
};

TEST_F(AnHour, TwoGatesPassEachMessageOnceAndMakeNoLoop)
{
    Member* const stations[] = {&Add("Q0NEA", {"Q0GAT-1", "Q0MID"}),
                                &Add("Q0MID", {"Q0GAT-1", "Q0GAT-2", "Q0NEA", "Q0OFF"}),
                                &Add("Q0OFF", {"Q0GAT-2", "Q0MID"})};
    Member* const gates[] = {&Add("Q0GAT-1", {"Q0NEA", "Q0MID", "Q0GAT-2"}, 5),
                             &Add("Q0GAT-2", {"Q0MID", "Q0OFF", "Q0GAT-1"}, 12)};
    auto& far = Add("Q0FAR", {});

    int typed = 0, answered = 0;
    for (int seconds = 1; seconds <= HourMs / 1000; ++seconds) {
        for (int i = 0; i < 1000; i += StepMs) Step();
        if (seconds % 90 != 0 || seconds < 180 || seconds > 3300) continue;
        const auto number = std::to_string(seconds / 90);
        auto& local = *stations[seconds / 90 % 3];
        if (seconds / 90 % 4 != 3) {
            far.station.Type(local.Call(), "number " + number);
            ++typed;
        } else {
            Send(local.station.halvern, {":Q0FAR    :number " + number + "{" + number}, Road::Radio);
            ++answered;
        }
    }

    // every message arrived, and its ack found the way back
    const auto farRows = Station::Rows(far.station.halvern.MessageFrm.MsgToYouLst);
    EXPECT_THAT(farRows, SizeIs(typed + answered));
    EXPECT_EQ(std::ranges::count_if(farRows, [](auto& row) { return row.ends_with(" MESSAGE RECEIVED"); }), typed);
    std::set<std::string> acks;
    for (auto* local : stations)
        for (const auto& row : Station::Rows(local->station.halvern.TerminalFrm.RawPacketLst))
            if (const auto ack = row.find(CallField(local->Call()) + ":ack"); ack != std::string::npos)
                acks.insert(row.substr(ack));
    EXPECT_EQ(acks.size(), answered);

    std::ptrdiff_t late = 0;
    for (auto* gate : gates) {
        for (const auto& line : gate->sent)
            if (line.starts_with(gate->Call() + ">") && Holds(line, "*::")) {
                EXPECT_EQ(std::ranges::count(gate->sent, line), 1) << line;
            }
        // what it hands to the server are its own packets, and lines that somebody sent on radio
        for (const auto& line : gate->to) {
            const bool own = line.starts_with(gate->Call() + ">APHV01,TCPIP*:");
            EXPECT_TRUE(own || (!Holds(line, "TCPIP") && !Holds(line, ",q") && !Holds(line, ":}"))) << line;
        }
        const auto rows = Station::Rows(gate->Main().DecisionLst);
        late += std::ranges::count_if(rows, [](auto& row) { return Holds(row, "another gate was first"); });
    }
    EXPECT_GT(late, 5);
}

} // namespace
} // namespace halvern::test
