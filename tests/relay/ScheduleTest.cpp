// SPDX-License-Identifier: GPL-3.0-or-later
// Beacons and messages over a long time, with ports that come and go.
#include <algorithm>
#include <random>
#include <set>

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
            timer->OnTick = [this, timer, tick = timer->OnTick] {
                if (tick) tick();
                Look(*timer);
            };
        }
    }
    virtual void Look(const Timer&)
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

/// The TNC is opened, closed, refused and unplugged as chance will have it.
struct RestlessTnc : Schedule {
    void Look(const Timer& timer) override
    {
        const auto& engine = halvern.Engine;
        const bool checked = main.PortTnc.Checked(), up = main.MSComm1.IsOpen();
        const auto sent = station.SentByRadio();
        const bool beacon = !sent.empty() && sent[0].starts_with("Q0OWN>APHV01:=");
        if (&timer == &main.Timer2 && beacon) beacons.push_back(station.time.Elapsed());
        ASSERT_TRUE(std::set({0, 1, 8000, 16000, 32000, 60000}).contains(main.Timer2.Interval()));
        ASSERT_TRUE(std::set({0, 1, 4000, 8000, 16000, 32000, 60000}).contains(form.Timer1.Interval()));
        ASSERT_GE(engine.BeaconMinutes, 0);
        ASSERT_LT(engine.BeaconMinutes, engine.BeaconRate);
        ASSERT_TRUE(form.RetryCycle >= 0 && form.RetryCycle < 10) << form.RetryCycle;
        ASSERT_TRUE(up || sent.empty()) << sent[0];
        ASSERT_TRUE(checked || !up);
        for (const auto* each : {&main.Timer2, &main.NetDecayTmr}) ASSERT_EQ(each->Running(), checked);
        ASSERT_FALSE(!checked && form.Timer1.Running());
        if (&timer != &form.Timer1) return;
        ASSERT_EQ(form.Timer1.Running(), up) << "an unplugged TNC is found out by the next retry";
        ASSERT_TRUE(up || form.OutMsg.Count() == 0);
    }
    /// The toggle, with every tenth open refused and every fifth TNC unplugged before it is closed.
    void Toggle()
    {
        const bool refused = Chance(10);
        if (!main.PortTnc.Checked() && refused) station.ports.Line(main.MSComm1)->Refuse(8002, "no such device");
        main.PortTnc.Click();
        ASSERT_EQ(main.MSComm1.IsOpen(), main.PortTnc.Checked());
        unplugged = Chance(5) ? station.time.Elapsed() + Within(Day / 6) : 0;
    }
    bool Chance(int oneIn) { return random() % oneIn == 0; }
    std::int64_t Within(std::int64_t time) { return 1 + static_cast<std::int64_t>(random() % time); }

    std::mt19937 random{20000101};
    std::int64_t unplugged = 0;
    Times beacons;
};

TEST_F(RestlessTnc, KeepsItsScheduleForAMonth)
{
    Times intended;
    int minutes = 0;
    int opened = 0;
    const auto intend = [&](std::int64_t from, std::int64_t heardUntil, std::int64_t until) {
        const auto beacon = [&](std::int64_t time) {
            if (time <= heardUntil) intended.push_back(time);
        };
        for (const int second : {0, 8, 24, 56})
            if (const auto time = from + 1 + second * Second; time <= until) beacon(time);
        for (auto time = from + 1 + 116 * Second; time <= until; time += Minute) {
            if (minutes == 0) beacon(time);
            minutes = (minutes + 1) % 10;
        }
    };
    while (station.time.Elapsed() < 30 * Day) {
        Toggle();
        const auto from = station.time.Elapsed();
        const auto until = from + Within(Chance(3) ? 2 * Minute : Day / 6);
        const bool open = main.MSComm1.IsOpen();
        if (open) {
            ++opened;
            station.Type("Q0AAA", "are you there");
        }
        const bool cut = open && unplugged != 0 && unplugged < until;
        if (cut) {
            WaitUntil(unplugged);
            main.MSComm1.device->Close();
        }
        WaitUntil(until);
        if (open) intend(from, cut ? unplugged : until, until);
        ASSERT_FALSE(HasFatalFailure());
    }
    EXPECT_GT(opened, 100);
    EXPECT_EQ(beacons, intended);
}

} // namespace
} // namespace halvern::test
