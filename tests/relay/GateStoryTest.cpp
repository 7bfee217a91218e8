// SPDX-License-Identifier: GPL-3.0-or-later
// Two gates, three stations around them and one far away on the Internet, for an hour: one radio channel, one server.
#include <deque>
#include <list>
#include <map>
#include <set>

#include "support/GateTest.h"
#include "transmit/Send.h"

namespace halvern::test {
namespace {

constexpr int StepMs = 500, HourMs = 3600000;
constexpr int DoubleMs = 30000; ///< a server hands on a packet once within so long

struct Member : Station {
    MainForm& Main() { return halvern.ConMdiFrm; }
    const std::string& Call() const { return halvern.Engine.OwnCall; }
    std::set<std::string> hears; ///< calls
    Strings sent, to;            ///< its lines on the air, in full, and to the server
};

struct AnHour : testing::Test {
    /// A gate has a hold; it repeats for the alias too, so that what one gate sends reaches the stations around the
    /// other. A station that hears nobody is far away, on the Internet.
    Member& Add(const std::string& call, const std::set<std::string>& hears, int holdSeconds = 0)
    {
        auto& member = members.emplace_back();
        auto& setUp = member.halvern.SetUpfrm;
        member.SetUp();
        member.SetCall(call);
        member.hears = hears;
        setUp.LatMintxt.SetText(std::to_string(10 + members.size())); // each at a place of its own
        setUp.UnPath.Add("WIDE1-1");
        setUp.UnPath.Preselect(hears.empty() ? 0 : setUp.UnPath.Count() - 1);
        setUp.IntDomainCombo.SetText("server");
        if (hears.empty()) {
            member.Main().PortIp.Click();
            member.Main().InternetSoc.Arrived("# server\r\n");
        } else if (holdSeconds == 0) {
            member.OpenTnc();
        } else {
            member.OpenGate();
            setUp.MyAlias = "WIDE1-1";
            setUp.IgateHopOpt.Select(1);
            setUp.IgateTimeLbl.SetNumber(holdSeconds);
            member.Main().Timer2.Start(1);
        }
        return member;
    }

    /// The channel carries one packet a step; whoever wants to send waits until it is free.
    void Step()
    {
        now += StepMs;
        for (auto& member : members) {
            member.time.Wait(StepMs);
            for (const auto& bytes : member.SentBy(member.Main().MSComm1)) {
                channel.emplace_back(member.Call(), bytes);
                member.sent.push_back(LineOfFrame(bytes));
            }
            for (const auto& line : member.SentBy(member.Main().InternetSoc))
                if (!line.starts_with("user ")) Serve(member, line);
        }
        if (channel.empty()) return;
        for (auto& hearer : members)
            if (hearer.hears.contains(channel.front().first)) hearer.Main().MSComm1.Arrived(channel.front().second);
        channel.pop_front();
    }
    /// As servers do: a packet once, with the way it came in, to everybody but who sent it.
    void Serve(Member& member, const std::string& line)
    {
        member.to.push_back(line);
        const auto colon = line.find(':');
        const auto head = line.substr(0, colon), info = line.substr(colon);
        auto& last = served.try_emplace(line.substr(0, line.find(',')) + info, -DoubleMs).first->second;
        if (now - last < DoubleMs) return;
        last = now;
        const auto way = Holds(head, "TCPIP*") ? ",qAC,SERVER" : ",qAR," + member.Call();
        for (auto& other : members)
            if (&other != &member) other.Main().InternetSoc.Arrived(head + way + info);
    }

    std::list<Member> members;
    std::deque<std::pair<std::string, std::string>> channel; ///< by whom, and the bytes
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
    while (now < HourMs) {
        Step();
        if (now % 90000 != 0 || now < 180000 || now > 3300000) continue;
        const int number = now / 90000;
        auto& local = *stations[number % 3];
        const auto text = "number " + std::to_string(number);
        if (number % 4 != 3) {
            far.Type(local.Call(), text);
            ++typed;
        } else {
            Send(local.halvern, {":Q0FAR    :" + text + "{" + std::to_string(number)}, Road::Radio);
            ++answered;
        }
    }

    // every message arrived, and its ack found the way back
    const auto farRows = Station::Rows(far.halvern.MessageFrm.MsgToYouLst);
    EXPECT_THAT(farRows, SizeIs(typed + answered));
    EXPECT_EQ(std::ranges::count_if(farRows, [](auto& row) { return row.ends_with(" MESSAGE RECEIVED"); }), typed);
    std::set<std::string> acks;
    for (auto* local : stations)
        for (const auto& row : Station::Rows(local->halvern.TerminalFrm.RawPacketLst))
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
