// SPDX-License-Identifier: GPL-3.0-or-later
#include "relay/Beacon.h"

#include "protocol/Paths.h"
#include "support/StationTest.h"

namespace halvern::test {
namespace {

TEST(Paths, AreCheckedAndCounted)
{
    const std::tuple<const char*, const char*, int> own[] = {
        {"RELAY", "RELAY*", 1},           {"WIDE1-1", "WIDE1*", 2},
        {"WIDE2-2", "WIDE2*", 3},         {"Q0ABC-7", "Q0ABC-7*", 1},
        {"RELAY,WIDE", "RELAY,WIDE*", 2}, {"WIDE1-1,WIDE2-1", "WIDE1,WIDE2*", 5},
        {"WIDE10-1", "WIDE10*", 1},       {"Q0ABC-7,WIDE2-1", "Q0ABC-7,WIDE2*", 4}, // only the last digit counts
        {"A-1", "Path No Good", 0},       {"-1", "Path No Good", 0}};
    for (const auto& [path, checked, hops] : own) {
        EXPECT_EQ(CheckUnprotoPath(path), checked);
        EXPECT_EQ(PathHopCount(checked), hops) << checked;
    }
    const std::pair<const char*, int> heard[] = {{"None", 0},
                                                 {"0", 0},
                                                 {"", 0},
                                                 {"WIDE2-2", 0},
                                                 {"Q0ABC,WIDE2-1", 1},
                                                 {"Q0ABC*,WIDE2-1", 2},
                                                 {"Q0ABC,Q0DEF-5*", 2},
                                                 {"-5", 100},
                                                 {"WIDE2-99999999999", 100}};
    for (const auto& [path, hops] : heard) EXPECT_EQ(PathHopCount(path), hops) << path;
}

struct Beacons : StationTest {};

const std::string Position = "=4049.14N/07308.41W-PHG5130 own";

TEST_F(Beacons, TheDialectOfMarksSpeaksCharacterByCharacter)
{
    setUp.Psk63PortTxt.SetText("3122");
    setUp.UnPath.Preselect(1);
    halvern.Engine.Psk63Reply = "DONE";
    main.Psk63Soc.Connect();
    const auto sent = [&](bool busy) {
        halvern.Engine.Psk63Busy = busy;
        main.Timer2.Start(8000);
        station.time.Wait(8000);
        return station.SentBy(main.Psk63Soc);
    };
    const auto position = "SSSSSQ0OWN>APHV01:" + Position + "EEEEE";
    EXPECT_THAT(sent(false),
                ElementsAre(Marked(position + "\r"), Marked("SSSSSQ0OWN>APHV01:>hereEEEEE"), "\x1ATX\x1B"));
    EXPECT_EQ(halvern.Engine.Psk63Reply, "");
    EXPECT_THAT(sent(true), IsEmpty());
    halvern.Engine.Psk63Busy = false;
    main.BeaconMenu.Click();
    EXPECT_THAT(station.SentBy(main.Psk63Soc), ElementsAre(Marked(position), "\x1ATX\x1B"));
}

TEST_F(Beacons, FollowThePathInTheirRate)
{
    const std::pair<const char*, int> rates[] = {{"RELAY", 10},      {"WIDE1-1", 20},         {"WIDE2-2", 30},
                                                 {"RELAY,WIDE", 20}, {"WIDE1-1,WIDE2-1", 30}, {"NONE", 10}};
    for (const auto& [path, rate] : rates) {
        setUp.UnPath.Add(path);
        setUp.UnPath.Preselect(setUp.UnPath.IndexOf(path));
        main.Timer2.Start(1);
        station.time.Wait(1);
        EXPECT_EQ(halvern.Engine.BeaconRate, rate) << path;
    }
    // a count that the new rate has left behind goes on without a beacon
    halvern.Engine.BeaconMinutes = 12;
    main.Timer2.Start(60000);
    station.OpenTnc();
    main.Timer2.Start(60000);
    station.time.Wait(3600 * 1000);
    EXPECT_EQ(halvern.Engine.BeaconMinutes, 72);
    EXPECT_THAT(station.SentByRadio(), IsEmpty());
    halvern.Engine.BeaconMinutes = 32767;
    station.time.Wait(60000);
    EXPECT_FALSE(main.Timer2.Enabled());
    EXPECT_THAT(Said(), Contains("message critical \"Halvern\" \"Error # 6 Overflow\""));
}

TEST_F(Beacons, ABadPathClosesThePortsOnce)
{
    setUp.UnPath.Add("A-1");
    setUp.UnPath.Preselect(2);
    setUp.IntDomainCombo.SetText("feed.example");
    for (MenuItem* item : {&main.PortTnc, &main.SoundCardMenu, &main.PortIp}) item->Click();
    main.Psk63Soc.Connect();
    station.time.Wait(10);
    EXPECT_FALSE(main.PortTnc.Checked() || main.SoundCardMenu.Checked() || main.PortIp.Checked());
    EXPECT_TRUE(main.Psk63Soc.Connected());
    EXPECT_FALSE(main.Timer2.Enabled());
    EXPECT_THAT(Said(), ElementsAre(HasSubstr("critical \"Halvern\" \"An Error has been")));
    EXPECT_THAT(station.SentByRadio(), IsEmpty());
    // the operator insists
    halvern.Engine.BeaconRate = 20;
    station.OpenTnc();
    station.time.Wait(10);
    EXPECT_THAT(station.SentByRadio(), SizeIs(2));
    EXPECT_EQ(halvern.Engine.BeaconRate, 20);
}

} // namespace
} // namespace halvern::test
