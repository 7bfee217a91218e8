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
    std::vector<std::string> sent;     ///< its lines on the air, in full
    std::vector<std::string> to, from; ///< its lines to the server, and those that it got
    double airMs = 0;
};

struct Transmission {
    Member* by;
    std::string bytes;
    int end;
};

struct AnHour : testing::Test {
    Member& Add(const std::string& call, const std::string& path, const std::set<std::string>& hears)
    {
        auto& member = *members.emplace_back(std::make_unique<Member>(call));
        member.hears = hears;
        auto& setUp = member.station.halvern.SetUpfrm;
        setUp.LatMintxt.SetText(std::to_string(10 + members.size())); // each at a place of its own
        setUp.UnPath.Add(path);
        setUp.UnPath.Preselect(setUp.UnPath.IndexOf(path));
        return member;
    }
    Member& AddStation(const std::string& call, const std::set<std::string>& hears)
    {
        auto& member = Add(call, "WIDE1-1", hears);
        member.station.OpenTnc();
        return member;
    }
    /// It repeats for the alias too, so that what one gate sends reaches the stations around the other.
    Member& AddGate(const std::string& call, int holdSeconds, const std::set<std::string>& hears)
    {
        auto& member = Add(call, "WIDE1-1", hears);
        member.station.OpenGate();
        auto& setUp = member.station.halvern.SetUpfrm;
        setUp.MyAlias = "WIDE1-1";
        setUp.IgateHopOpt.Select(1);
        setUp.IgateTimeLbl.SetNumber(holdSeconds);
        member.Main().Timer2.Start(1);
        return member;
    }
    Member& AddFarStation(const std::string& call)
    {
        auto& member = Add(call, "NONE", {});
        member.station.halvern.SetUpfrm.IntDomainCombo.SetText("server");
        member.Main().PortIp.Click();
        member.Main().InternetSoc.Arrived("# server\r\n");
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
            const double air = TxDelayMs + static_cast<double>(bytes.size()) * 8 / 1200 * 1000;
            const int start = std::max(now, channel.empty() ? 0 : channel.back().end);
            channel.push_back({&member, bytes, start + static_cast<int>(air)});
            member.airMs += air;
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
            other->from.push_back(line.substr(0, colon) + way + line.substr(colon));
            other->Main().InternetSoc.Arrived(other->from.back() + "\r\n");
        }
    }

    std::vector<std::unique_ptr<Member>> members;
    std::deque<Transmission> channel;
    std::map<std::string, int> served;
    int now = 0;
};

/// Of a gate's transmissions those of other stations' messages, and how often each.
std::map<std::string, int> MessagesPassed(const Member& gate)
{
    std::map<std::string, int> counts;
    for (const auto& line : gate.sent)
        if (line.starts_with(gate.Call() + ">") && Holds(line, "*::")) ++counts[line];
    return counts;
}

int Outcomes(Member& gate, std::string_view outcome)
{
    const auto rows = Station::Rows(gate.Main().DecisionLst);
    return static_cast<int>(std::ranges::count_if(rows, [&](const auto& row) { return Holds(row, outcome); }));
}

TEST_F(AnHour, TwoGatesPassEachMessageOnceAndMakeNoLoop)
{
    auto& near = AddStation("Q0NEA", {"Q0GAT-1", "Q0MID"});
    auto& middle = AddStation("Q0MID", {"Q0GAT-1", "Q0GAT-2", "Q0NEA", "Q0OFF"});
    auto& off = AddStation("Q0OFF", {"Q0GAT-2", "Q0MID"});
    auto& first = AddGate("Q0GAT-1", 5, {"Q0NEA", "Q0MID", "Q0GAT-2"});
    auto& second = AddGate("Q0GAT-2", 12, {"Q0MID", "Q0OFF", "Q0GAT-1"});
    auto& far = AddFarStation("Q0FAR");

    int typed = 0, answered = 0;
    Member* const stations[] = {&near, &middle, &off};
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

    for (auto* gate : {&first, &second}) {
        for (const auto& [line, times] : MessagesPassed(*gate)) EXPECT_EQ(times, 1) << line;
        // what it hands to the server are its own packets, and lines that somebody sent on radio
        for (const auto& line : gate->to) {
            const bool own = line.starts_with(gate->Call() + ">APHV01,TCPIP*:");
            EXPECT_TRUE(own || (!Holds(line, "TCPIP") && !Holds(line, ",q") && !Holds(line, ":}"))) << line;
        }
    }
    EXPECT_GT(Outcomes(first, "another gate was first") + Outcomes(second, "another gate was first"), 5);

    for (const auto& member : members)
        std::printf("%-8s %4zu packets on the air, %6.1f s of %d; %3zu lines to the server, %3zu from it\n",
                    member->Call().c_str(), member->sent.size(), member->airMs / 1000, HourMs / 1000, member->to.size(),
                    member->from.size());
    std::printf("%d messages; passed %zu and %zu; another gate was first %d and %d times\n", typed + answered,
                MessagesPassed(first).size(), MessagesPassed(second).size(), Outcomes(first, "another gate was first"),
                Outcomes(second, "another gate was first"));
    EXPECT_LT(first.airMs + second.airMs, HourMs / 5);
}

} // namespace
} // namespace halvern::test
