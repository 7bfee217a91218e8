// SPDX-License-Identifier: GPL-3.0-or-later
#include "relay/Digipeater.h"

#include "support/StationTest.h"

namespace halvern::test {
namespace {

TEST(DigiSubstitute, TakesTheNextEntryOnly)
{
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {",WIDE1-1", "WIDE1-1", ",Q0OWN*"},
        {",WIDE1-1,WIDE2-1", "WIDE1-1", ",Q0OWN*,WIDE2-1"},
        {",WIDE1-1*,WIDE2-1", "WIDE1-1", nullptr},
        {",Q0ABC*,WIDE1-1,WIDE2-1", "WIDE1-1", ",Q0ABC*,Q0OWN*,WIDE2-1"},
        {",Q0ABC*,WIDE1-1*", "WIDE1-1", nullptr},
        {",Q0ABC,WIDE1-1", "WIDE1-1", nullptr},
        // plain text: parts of entries, and no second look
        {",Q0OWN-5,Q0ABC", "Q0OWN", ",Q0OWN*-5,Q0ABC"},
        {",XQ0OWN", "Q0OWN", nullptr},
        {",Q0ABC,Q0OWN-5*,Q0OWN", "Q0OWN", nullptr},
        {",WIDE1-1", "", nullptr},
        {",", "Q0OWN", nullptr}};
    for (const auto& [heard, call, changed] : cases) {
        std::string path = heard;
        std::int16_t count = 3;
        DigiSubstitute(path, count, call, "Q0OWN");
        EXPECT_EQ(path, changed == nullptr ? heard : changed);
        EXPECT_EQ(count, changed == nullptr ? 3 : 4) << heard;
    }
}

struct Digipeater : StationTest {};

TEST_F(Digipeater, RepeatsForItsNamesAndMarksWhatIsUsed)
{
    station.OpenTnc();
    main.Timer2.Stop();
    // On the air every used entry is marked, in the line the last one. The alias is on from the second case on.
    const std::string repeated = "Q0AAA>APRS,Q0OWN*,WIDE2-1:>x";
    // What is sent and what is filed: empty for nothing, and for the line as it was heard.
    const std::tuple<const char*, std::string, std::string> cases[] = {
        {"Q0AAA>APRS,WIDE1-1,WIDE2-1:>x", "", ""},
        {"Q0AAA>APRS,WIDE1-1,WIDE2-1:>x", repeated, repeated},
        {"Q0AAA>APRS,WIDE1-1,WIDE2-1:>x", repeated, repeated}, // no list of what went before
        {"Q0AAA>APRS,Q0ABC*,WIDE1-1,WIDE2-1:>x", "Q0AAA>APRS,Q0ABC*,Q0OWN*,WIDE2-1:>x",
         "Q0AAA>APRS,Q0ABC,Q0OWN*,WIDE2-1:>x"},
        {"Q0AAA>APRS,Q0OWN,WIDE2-1:>x", repeated, repeated},
        {"Q0AAA>APRS,Q0OWN*,WIDE2-1:>x", "", ""},
        {"Q0AAA>APRS,Q0OWN:>a\xC0\xDB\xFFz", "Q0AAA>APRS,Q0OWN*:>a\xC0\xDB\xFFz", "Q0AAA>APRS,Q0OWN*:>a\xC0\xDB\xFFz"},
        // with both names in it the first repeat marks an entry that is then found in the place of the second
        {"Q0AAA>APRS,Q0ABC*,Q0OWN,WIDE1-1:>x", "Q0AAA>APRS,Q0ABC*,Q0OWN*,WIDE1-1:>x",
         "Q0AAA>APRS,Q0ABC,Q0OWN*,WIDE1-1:>x"}};
    for (const auto& [heard, sent, raw] : cases) {
        station.HearOnTnc(heard);
        EXPECT_EQ(station.SentByRadio(), sent.empty() ? Strings{} : Strings{sent}) << heard;
        EXPECT_EQ(Raw().back(), raw.empty() ? heard : raw);
        setUp.MyAlias = "WIDE1-1";
    }
    halvern.Engine.OwnCall = "Q0OWN-5";
    station.HearOnTnc("Q0AAA>APRS,WIDE1-1,Q0OWN-5:>x");
    EXPECT_THAT(station.SentByRadio(), ElementsAre("Q0AAA>APRS,Q0OWN-5*,Q0OWN-5:>x"));
}

} // namespace
} // namespace halvern::test
