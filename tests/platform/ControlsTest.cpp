// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Controls.h"
#include "platform/Form.h"
#include "platform/Lists.h"

#include <gtest/gtest.h>

#include <random>

#include "platform/Text.h"

namespace halvern {
namespace {

struct SmallForm : Form {
    explicit SmallForm(Controls& all) : Form(all, "SmallFrm", "Small") {}
    KeyedList Stations{*this, "Stations"};
    List Ladder{*this, "Ladder", ListStyle::Combo, {"one", "two", "three"}};
    Grid Heard{*this, "Heard"};
    Timer Beat{*this, "Beat"};
};

struct ControlsTest : ::testing::Test {
    Controls all;
    SmallForm form{all};
};

/// Rows come, go and change at random, many of one call; a plain walk says what the store has to find.
TEST_F(ControlsTest, TheFirstRowOfACallIsFoundAsByAWalk)
{
    std::minstd_rand random(1);
    const auto under = [&](int bound) { return static_cast<int>(random() % static_cast<unsigned>(bound)); };
    auto& store = form.Stations;
    for (int turn = 0; turn < 20'000; ++turn) {
        const auto call = CallField("Q" + std::to_string(under(300)));
        const int count = store.Count(), index = under(count + 1), act = under(100);
        if (act < 45 || count == 0)
            store.Insert(call + " a row", act < 30 ? count : act < 40 ? index : count / 2);
        else if (act < 70)
            store.Replace(index % count, call + " a change");
        else if (act < 99)
            store.Remove(index % count);
        else if (under(10) == 0)
            store.Clear();
        else
            store.RemoveIf([&](int row) { return row % 3 == 0; });
        int first = NotFound, alike = 0;
        for (int row = store.Count() - 1; row >= 0; --row)
            if (store.Row(row).starts_with(call)) first = row, ++alike;
        ASSERT_EQ(store.Find(call), first) << "turn " << turn;
        store.FindAlike(call, [&](int) { return --alike < 0; });
        ASSERT_EQ(alike, 0) << "turn " << turn;
    }
}

/// Each of three events in one another ends by what it throws, and is told as the doing of who set it off.
TEST_F(ControlsTest, WhatIsThrownEndsOneHandlerAndIsToldAsWhoseDoingItIs)
{
    std::string told;
    all.OnFailure = [&](const std::exception& thrown) {
        told += std::to_string(NumberOf(thrown)) + " " + std::string(all.Present().about) + "; ";
    };
    all.Dispatch(form.Ladder, [&] {
        EXPECT_FALSE(all.Present().station) << "a click is the operator's";
        all.Dispatch(form.Beat, [&] {
            all.Dispatch(form, [] { throw std::out_of_range("a window that comes up by it"); });
            const StationActs packet(all, "Q1ABC");
            form.Heard.Cell(9, 0);
        });
        EXPECT_FALSE(all.Present().station);
        throw std::bad_alloc();
    });
    EXPECT_EQ(told, "51 SmallFrm.Beat; 9 SmallFrm.Beat; 7 ; ");
}

TEST(TextTest, NumbersAreReadAndWrittenAsOperatorsWriteThem)
{
    const std::pair<const char*, double> cases[] = {{" 12.5kn", 12.5}, {"-7", -7}, {"+3", 3},
                                                    {".25", 0.25},     {"", 0},    {"abc", 0},
                                                    {"1.2.3", 1.2},    {"-", 0},   {"5 Min", 5}};
    for (const auto& [text, number] : cases) EXPECT_EQ(LeadingNumber(text), number) << text;
    EXPECT_EQ(PlainNumber(-0.5), "-0.5");
    EXPECT_EQ(SignedNumber(12), " 12");
    EXPECT_EQ(SignedNumber(-12), "-12");
    EXPECT_EQ(ZeroFilled(7, 3), "007");
    EXPECT_EQ(ZeroFilled(-7, 3), "-7");
    for (const auto& [half, even] : {std::pair{0.5, 0L}, {1.5, 2L}, {2.5, 2L}, {-0.5, 0L}, {12.5, 12L}, {13.5, 14L}})
        EXPECT_EQ(RoundHalfToEven(half), even) << half;
}

TEST(TextTest, ColumnsNeverReachPastTheEnd)
{
    EXPECT_EQ(Columns("abc", 2, 5), "bc");
    EXPECT_EQ(Columns("abc", 4, 1), "");
    EXPECT_EQ(Columns("abc", 0, 1), "");
    EXPECT_EQ(ColumnAt("abc", 4), '\0');
    EXPECT_EQ(PositionOf("a:b:c", ':', 3), 4u);
    EXPECT_EQ(PositionOf("abc", "", 4), 4u);
    EXPECT_EQ(PositionOf("abc", "x"), 0u);
    EXPECT_EQ(CallField("N0CALL-12X"), "N0CALL-12");
}

} // namespace
} // namespace halvern
