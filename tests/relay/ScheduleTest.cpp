// SPDX-License-Identifier: GPL-3.0-or-later
// Beacons and messages over a long time, with ports that come and go.
#include <algorithm>

#include "support/StationTest.h"

namespace halvern::test {
namespace {

using Times = std::vector<std::int64_t>;

constexpr std::int64_t Second = 1000, Minute = 60 * Second, Hour = 60 * Minute, Day = 24 * Hour;

/// One send: when (ms), by what, and the bytes.
struct Sent {
    std::int64_t time;
    std::string port, bytes;
    auto operator<=>(const Sent&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Sent& sent)
{
    return out << sent.time << " " << sent.port << " " << sent.bytes;
}

/// A station whose every tick of a timer is looked at.
struct Schedule : StationTest {
    Schedule()
    {
        for (auto* control : halvern.All.All()) {
            auto* timer = dynamic_cast<Timer*>(control);
            if (timer == nullptr) continue;
            timer->OnTick = [this, tick = timer->OnTick] {
                if (tick) tick();
                Look();
            };
        }
    }
    void Look()
    {
        const auto note = [&](const char* port, const Strings& sent) {
            for (const auto& bytes : sent) air.push_back({station.time.Elapsed(), port, bytes});
        };
        note("radio", station.SentByRadio());
        note("internet", station.SentBy(main.InternetSoc));
        note("psk63", station.SentBy(main.Psk63Soc));
    }
    void WaitUntil(std::int64_t moment) { station.time.Wait(moment - station.time.Elapsed()); }

    std::vector<Sent> air;
};

/// When a message goes out that is new at `from`, until it is acked.
Times Retries(std::int64_t from, std::int64_t until)
{
    Times times;
    for (const int second : {0, 4, 12, 28, 60}) times.push_back(from + 1 + second * Second);
    for (auto time = from + 1 + 2 * Minute; time < until; time += 9 * Minute) times.push_back(time);
    return times;
}

TEST_F(Schedule, OfADayOnThreePorts)
{
    const std::string head = "Q0OWN>APHV01:", net = "Q0OWN>APHV01,TCPIP*:", end = "\r\n";
    const std::string position = "=4049.14N/07308.41W-PHG5130 own", status = ">here";
    std::vector<Sent> intended;
    const auto intend = [&](const Times& times, const char* port, const std::string& bytes) {
        for (const auto time : times) intended.push_back({time, port, bytes});
    };
    Times group{1, 1 + 8 * Second, 1 + 24 * Second, 1 + 56 * Second}, psk63{1 + 8 * Second};
    const auto steady = 1 + 116 * Second;
    for (auto time = steady; time <= Day; time += 10 * Minute) group.push_back(time);
    for (auto time = steady + 5 * Minute; time <= Day; time += 5 * Minute) psk63.push_back(time);
    for (const auto& text : {position, status}) {
        intend(group, "radio", head + text);
        intend(group, "internet", net + text + end);
        intend(psk63, "psk63", head + text + end);
    }
    // a second station in the queue, and its ack, begin the pace of the first one anew
    for (const auto& [from, until] : {std::pair{Hour / 2, Hour}, {Hour, 2 * Hour}, {2 * Hour, Day}})
        intend(Retries(from, until), "internet", net + ":Q0BBB    :by wire{1" + end);
    intend(Retries(Hour, 2 * Hour), "radio", head + ":Q0AAA    :by air{2");

    main.InternetSoc.Connect();
    main.ServerLoggedIn = true;
    main.Psk63Soc.Connect();
    station.OpenTnc();
    station.Hear("Q0BBB>APRS,TCPIP*:>x", "TCPIP");
    WaitUntil(Hour / 2);
    station.Type("Q0BBB", "by wire");
    WaitUntil(Hour);
    station.Type("Q0AAA", "by air");
    WaitUntil(2 * Hour);
    station.Hear("Q0AAA>APRS::Q0OWN    :ack2");
    WaitUntil(Day);

    std::ranges::sort(intended);
    std::ranges::sort(air);
    EXPECT_EQ(air, intended);
}

TEST_F(Schedule, OfATncThatComesAndGoes)
{
    const auto rest = [&] { return !main.Timer2.Running() && !main.NetDecayTmr.Running() && !form.Timer1.Running(); };
    station.OpenTnc();
    station.Type("Q0AAA", "are you there");
    WaitUntil(5 * Minute);
    main.PortTnc.Click();
    EXPECT_TRUE(rest());
    station.ports.Line(main.MSComm1)->Refuse(8002, "no such device");
    main.PortTnc.Click();
    EXPECT_TRUE(rest());
    WaitUntil(20 * Minute);
    station.OpenTnc();
    station.Type("Q0BBB", "and now");
    WaitUntil(45 * Minute);
    EXPECT_EQ(form.OutMsg.Count(), 2);
    main.MSComm1.device->Close(); // unplugged, which the next retry finds out
    WaitUntil(Hour);
    EXPECT_EQ(form.OutMsg.Count(), 0);
    EXPECT_TRUE(main.PortTnc.Checked() && main.Timer2.Running() && !form.Timer1.Running());
    main.PortTnc.Click();
    EXPECT_TRUE(rest());
    WaitUntil(2 * Hour);

    // the fast beacons begin anew with each opening, the count of minutes goes on from where it was
    Times intended{1, 8001, 24001, 56001, 116001}, beacons;
    for (const auto second : {0, 8, 24, 56, 116 + 6 * 60, 116 + 16 * 60})
        intended.push_back(20 * Minute + 1 + second * Second);
    for (const auto& sent : air)
        if (sent.bytes.starts_with("Q0OWN>APHV01:=")) beacons.push_back(sent.time);
    EXPECT_EQ(beacons, intended);
}

} // namespace
} // namespace halvern::test
