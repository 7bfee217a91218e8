// SPDX-License-Identifier: GPL-3.0-or-later
// All that a station says in a day, beside a timetable that knows nothing of its timers.
#include <algorithm>

#include "relay/Objects.h"
#include "support/StationTest.h"

namespace halvern::test {
namespace {

using Times = std::vector<std::int64_t>;

constexpr std::int64_t Second = 1000, Minute = 60 * Second, Hour = 60 * Minute, Day = 24 * Hour;

/// When (ms), and the port and its bytes.
using Sent = std::pair<std::int64_t, std::string>;

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
        for (const auto& sent : Air()) air.emplace_back(station.time.Elapsed(), sent);
    }
    void WaitUntil(std::int64_t moment) { station.time.Wait(moment - station.time.Elapsed()); }

    std::vector<Sent> air;
};

const std::string Own = "Q0OWN>APHV01", End = "\r\n";

/// What goes out on a day with TNC, sound card, server and PSK63 open, by the rules that the operator knows.
struct Timetable {
    std::vector<Sent> all;

    void Radio(std::int64_t time, const std::string& line)
    {
        for (const std::string port : {"radio ", "sound "}) all.emplace_back(time, port + line);
    }
    void Internet(std::int64_t time, const std::string& line) { all.emplace_back(time, "internet " + line + End); }
    void Psk63(std::int64_t time, const std::string& info, const std::string& path = "")
    {
        all.emplace_back(time, "psk63 " + Own + path + ":" + info + End);
    }
    void RadioAndInternet(std::int64_t time, const std::string& info, const std::string& path = "")
    {
        Radio(time, Own + path + ":" + info);
        Internet(time, Own + ",TCPIP*:" + info);
    }

    /// At 0, 8, 24, 56 and 116 seconds, then every ten minutes; by PSK63 at 8 seconds and every five minutes. The
    /// counts of minutes go on where a pause has left them.
    void Beacons(std::int64_t from, std::int64_t until)
    {
        const auto each = [](const auto& send) {
            for (const auto* info : {"=4049.14N/07308.41W-PHG5130 own", ">here"}) send(info);
        };
        const auto group = [&](std::int64_t time) { each([&](auto* info) { RadioAndInternet(time, info); }); };
        const auto psk63 = [&](std::int64_t time) { each([&](auto* info) { Psk63(time, info); }); };
        for (const int second : {0, 8, 24, 56}) group(from + 1 + second * Second);
        psk63(from + 1 + 8 * Second);
        for (auto time = from + 1 + 116 * Second; time < until; time += Minute, ++minutes) {
            if (minutes > 0 && minutes % 5 == 0) psk63(time);
            if (minutes % 10 == 0) group(time);
        }
    }
    int minutes = 0;

    void Object(std::int64_t time, const std::string& info)
    {
        RadioAndInternet(time, info, ",WIDE2-2");
        Psk63(time, info, ",WIDE2-2");
    }
    /// From a change to the next one: the changed object at 0, 8, 24 and 56 seconds, all of them every half hour.
    void Objects(std::int64_t from, std::int64_t until, const std::string& changed, const Strings& others)
    {
        for (const int second : {0, 8, 24, 56}) Object(from + 1 + second * Second, changed);
        for (auto time = from + 1 + 116 * Second; time < until; time += Minute, ++slow) {
            if (slow % 30 != 0) continue;
            Object(time, changed);
            for (const auto& info : others) Object(time, info);
        }
    }
    int slow = 0;

    void Weather(std::int64_t from, std::int64_t until)
    {
        for (auto time = from + 1; time < until; time += 5 * 65 * Second) {
            char stamp[20];
            std::snprintf(stamp, sizeof stamp, "@01%02d%02dz", int(time / Hour), int(time % Hour / Minute));
            const auto info = stamp + std::string("4049.14N/07308.41W_220/004g005t077");
            RadioAndInternet(time, info);
            Psk63(time, info);
        }
    }
    /// A message that is new at `from`, until it is acked.
    void Message(std::int64_t from, std::int64_t until, bool byRadio, const std::string& info)
    {
        Times times;
        for (const int second : {0, 4, 12, 28, 60}) times.push_back(from + 1 + second * Second);
        for (auto time = from + 1 + 2 * Minute; time < until; time += 9 * Minute) times.push_back(time);
        for (const auto time : times) byRadio ? Radio(time, Own + ":" + info) : Internet(time, Own + ",TCPIP*:" + info);
    }
    /// A car's report is repeated and gated; a message for it comes to radio after the hold.
    void Relayed(std::int64_t time, bool message)
    {
        const std::string report = "Q0CAR>APRS,Q0OWN*:!4050.00N/07308.00W>on the way";
        Radio(time, report);
        Internet(time, report);
        if (message)
            Radio(time + 5 * Second, "Q0OWN>APRS:}Q0FAR>APRS,TCPIP,Q0OWN*::Q0CAR    :where?{" + std::to_string(time));
    }
};

TEST_F(Schedule, OfADayWithEveryPortAndServiceOn)
{
    const std::string fire = ";FIRE     *010300z4050.00N/07309.00W-smoke",
                      post = ";POST     *010400z4051.00N/07309.00W-";
    auto killed = fire;
    killed[10] = '_';
    Timetable day;
    day.Beacons(0, Day / 2);
    day.Weather(Day / 2, 18 * Hour);
    day.Beacons(18 * Hour, Day);
    day.Objects(3 * Hour, 4 * Hour, fire, {});
    day.Objects(4 * Hour, 9 * Hour, post, {fire});
    day.Objects(9 * Hour, Day, killed, {post});
    std::erase_if(day.all, [&](const Sent& sent) { return sent.first > 20 * Hour && Holds(sent.second, post); });
    // a second station in the queue, and its ack, begin the pace of the first one anew
    for (const auto& [from, until] : {std::pair{Hour / 2, Hour}, {Hour, 2 * Hour}, {2 * Hour, Day}})
        day.Message(from, until, false, ":Q0BBB    :by wire{1");
    day.Message(Hour, 2 * Hour, true, ":Q0AAA    :by air{2");

    const TemporaryFolder folder;
    folder.Put("wx.txt", "Jan 01 2000 12:00\n220/004g005t077\n");
    setUp.WxSourceOpt.Select(1);
    setUp.File1.SetPath(folder.Path());
    setUp.File1.SetText("wx.txt");
    station.OpenGate();
    main.SoundSoc.Connect();
    main.Psk63Soc.Connect();
    main.Timer2.Start(1);
    setUp.MyAlias = "WIDE1-1";
    setUp.IgateHopOpt.Select(1);
    setUp.IgateTimeLbl.SetNumber(5);
    station.Hear("Q0BBB>APRS,TCPIP*:>x", "TCPIP");
    const auto add = [&](const char* name, const char* minute, const char* comment) {
        AddMyObject(halvern, {.name = name,
                              .symbol = "/-",
                              .place = {{"40", minute, "00", "N", "073", "09", "00", "W"}, 0, 0, comment},
                              .path = "WIDE2-2"});
        main.MyObjectTimer.Start(1);
    };
    const std::vector<std::pair<std::int64_t, std::function<void()>>> doings{
        {Hour / 2, [&] { station.Type("Q0BBB", "by wire"); }},
        {Hour, [&] { station.Type("Q0AAA", "by air"); }},
        {2 * Hour, [&] { station.Hear("Q0AAA>APRS::Q0OWN    :ack2"); }},
        {3 * Hour, [&] { add("FIRE", "50", "smoke"); }},
        {4 * Hour, [&] { add("POST", "51", ""); }},
        {9 * Hour, [&] { ChangeMyObject(halvern, 0, killed + "|WIDE2-2"), main.MyObjectTimer.Start(1); }},
        {Day / 2, [&] { main.WeatherMenu.Click(); }},
        {18 * Hour, [&] { main.WeatherMenu.Click(); }},
        {20 * Hour, [&] { RemoveMyObject(halvern, 1); }}};
    auto next = doings.begin();
    for (auto time = Hour / 3; time < Day; time += 10 * Minute) {
        for (; next != doings.end() && next->first <= time; ++next) WaitUntil(next->first), next->second();
        WaitUntil(time);
        if (time % Hour != Hour / 3) continue;
        const bool message = time / Hour % 2 == 0;
        station.HearOnTnc("Q0CAR>APRS,WIDE1-1:!4050.00N/07308.00W>on the way");
        if (message)
            main.InternetSoc.Arrived("Q0FAR>APRS,TCPIP*,qAC,T2::Q0CAR    :where?{" + std::to_string(time) + End);
        Look();
        day.Relayed(time, message);
    }
    WaitUntil(Day);

    std::ranges::sort(day.all);
    std::ranges::sort(air);
    EXPECT_EQ(air, day.all);
}

} // namespace
} // namespace halvern::test
