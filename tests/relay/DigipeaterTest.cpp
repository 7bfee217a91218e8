// SPDX-License-Identifier: GPL-3.0-or-later
#include "relay/Digipeater.h"

#include <gmock/gmock.h>

#include "support/Station.h"

namespace halvern::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(DigiSubstitute, TakesTheNextEntryOnly)
{
    const struct {
        const char *path, *call, *changed;
    } cases[] = {
        {",WIDE1-1", "WIDE1-1", ",Q0OWN*"},
        {",WIDE1-1,WIDE2-1", "WIDE1-1", ",Q0OWN*,WIDE2-1"},
        {",WIDE1-1*,WIDE2-1", "WIDE1-1", nullptr},
        {",Q0ABC*,WIDE1-1,WIDE2-1", "WIDE1-1", ",Q0ABC*,Q0OWN*,WIDE2-1"},
        {",Q0ABC*,WIDE1-1", "WIDE1-1", ",Q0ABC*,Q0OWN*"},
        {",Q0ABC*,WIDE1-1*", "WIDE1-1", nullptr},
        {",Q0ABC,WIDE1-1", "WIDE1-1", nullptr},
        {",Q0ABC", "WIDE1-1", nullptr},
        // plain text: parts of entries, and no second look
        {",Q0OWN-5,Q0ABC", "Q0OWN", ",Q0OWN*-5,Q0ABC"},
        {",XQ0OWN", "Q0OWN", nullptr},
        {",Q0ABC,Q0OWN-5*,Q0OWN", "Q0OWN", nullptr},
        {",XWIDE1-1", "WIDE1-1", nullptr},
        {",WIDE1-1", "", nullptr},
        {",", "Q0OWN", nullptr},
    };
    for (const auto& each : cases) {
        std::string path = each.path;
        std::int16_t count = 3;
        DigiSubstitute(path, count, each.call, "Q0OWN");
        EXPECT_EQ(path, each.changed == nullptr ? each.path : each.changed);
        EXPECT_EQ(count, each.changed == nullptr ? 3 : 4) << each.path;
    }
}

struct Digipeater : testing::Test {
    Digipeater()
    {
        station.SetUp();
        station.OpenTnc();
        halvern.ConMdiFrm.Timer2.Stop();
    }
    void SwitchOnAlias() { halvern.SetUpfrm.MyAlias = "WIDE1-1"; }
    std::string LastRaw() const
    {
        const auto& raw = halvern.TerminalFrm.RawPacketLst;
        return raw.Count() == 0 ? std::string{} : raw.Row(raw.Count() - 1);
    }
    Station station;
    Halvern& halvern = station.halvern;
};

TEST_F(Digipeater, RepeatsForTheAliasWhileItIsOn)
{
    station.HearOnTnc("Q0AAA>APRS,WIDE1-1,WIDE2-1:>x");
    EXPECT_THAT(station.SentByRadio(), IsEmpty());
    SwitchOnAlias();
    station.HearOnTnc("Q0AAA>APRS,WIDE1-1,WIDE2-1:>x");
    EXPECT_THAT(station.SentByRadio(), ElementsAre("Q0AAA>APRS,Q0OWN*,WIDE2-1:>x"));
    EXPECT_EQ(LastRaw(), "Q0AAA>APRS,Q0OWN*,WIDE2-1:>x");
    // no list of what went before
    station.HearOnTnc("Q0AAA>APRS,WIDE1-1,WIDE2-1:>x");
    EXPECT_THAT(station.SentByRadio(), testing::SizeIs(1));
}

TEST_F(Digipeater, MarksEveryUsedEntryOnTheAirAndTheLastOneInTheLine)
{
    SwitchOnAlias();
    station.HearOnTnc("Q0AAA>APRS,Q0ABC*,WIDE1-1,WIDE2-1:>x");
    EXPECT_THAT(station.SentByRadio(), ElementsAre("Q0AAA>APRS,Q0ABC*,Q0OWN*,WIDE2-1:>x"));
    EXPECT_EQ(LastRaw(), "Q0AAA>APRS,Q0ABC,Q0OWN*,WIDE2-1:>x");
}

TEST_F(Digipeater, RepeatsForItsOwnCallAndTwiceForBothNames)
{
    station.HearOnTnc("Q0AAA>APRS,Q0OWN,WIDE2-1:>x");
    EXPECT_THAT(station.SentByRadio(), ElementsAre("Q0AAA>APRS,Q0OWN*,WIDE2-1:>x"));
    station.HearOnTnc("Q0AAA>APRS,Q0OWN*,WIDE2-1:>x");
    EXPECT_THAT(station.SentByRadio(), IsEmpty());
    // with both names in it the first repeat marks an entry that is then found in the place of the second
    SwitchOnAlias();
    station.HearOnTnc("Q0AAA>APRS,Q0ABC*,Q0OWN,WIDE1-1:>x");
    EXPECT_THAT(station.SentByRadio(), ElementsAre("Q0AAA>APRS,Q0ABC*,Q0OWN*,WIDE1-1:>x"));
    halvern.Engine.OwnCall = "Q0OWN-5";
    station.HearOnTnc("Q0AAA>APRS,WIDE1-1,Q0OWN-5:>x");
    EXPECT_THAT(station.SentByRadio(), ElementsAre("Q0AAA>APRS,Q0OWN-5*,Q0OWN-5:>x"));
}

TEST_F(Digipeater, LeavesEveryByteOfTheInformationAsItWas)
{
    station.HearOnTnc("Q0AAA>APRS,Q0OWN:>a\xC0\xDB\xFFz");
    EXPECT_THAT(station.SentByRadio(), ElementsAre("Q0AAA>APRS,Q0OWN*:>a\xC0\xDB\xFFz"));
    EXPECT_EQ(LastRaw(), "Q0AAA>APRS,Q0OWN*:>a\xC0\xDB\xFFz");
}

TEST_F(Digipeater, RepeatsOnEveryRadioPort)
{
    halvern.ConMdiFrm.SoundCardMenu.Click();
    station.HearOnTnc("Q0AAA>APRS,Q0OWN:>x");
    EXPECT_THAT(station.SentByRadio(), testing::SizeIs(1));
    EXPECT_THAT(station.SentBy(halvern.ConMdiFrm.SoundSoc), testing::SizeIs(1));
}

} // namespace
} // namespace halvern::test
