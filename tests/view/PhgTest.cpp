// SPDX-License-Identifier: GPL-3.0-or-later
#include <cmath>

#include "support/MapStation.h"
#include "view/Phg.h"

namespace halvern::test {
namespace {

class Phg : public MapStation {
protected:
    Phg()
    {
        ShowMap();
        GoToView(halvern(), 40, 73, 64);
        halvern().PositionFrm.PosLst.Clear();
        station.map.Take();
    }
    void Row(std::string_view report, char state = ' ')
    {
        halvern().PositionFrm.PosLst.Add(CallField("Q1ABC") + state + std::string(report));
    }
    std::vector<NotedDrawing::Step> Circles()
    {
        auto steps = station.map.Take();
        std::erase_if(steps, [](const auto& step) { return step.kind != NotedDrawing::Step::Circle; });
        return steps;
    }
    static double Degrees(double power, double height, double gain, double divisor)
    {
        return std::sqrt(2 * height * std::sqrt(power / 10 * (gain / 2))) / divisor * 0.015625 * 2;
    }
};

TEST_F(Phg, TheCodeGivesTheRadius)
{
    struct Case {
        const char* report;
        double power, height, gain;
    };
    const std::vector<Case> cases{
        {"!010000z4000.00N/07300.00W-PHG2430 and more", 4, 160, 1.9952623},
        {"!010000z4000.00N/07300.00W-no code", 25, 20, 1.9952623},
        {"!010000z4000.00N/07300.00W-PHG2x30", 25, 20, 1.9952623},
        {"!010000z4000.00N/07300.00W-PHG24", 25, 20, 1.9952623},
        {"!010000z4000.00N/07300.00W>PHG2430", 9, 10, 1.5848932},
        {"!010000z4000.00N\\07300.00WSPHG2430", 9, 10, 1.5848932},
        {";010000z4000.00N/07300.00W-PHG2430", 9, 10, 1.5848932},
        {"!010000z4000.00N/07300.00W-PHG0430", 0, 160, 1.9952623},
    };
    for (const auto& [report, power, height, gain] : cases) Row(report);
    for (const int mode : {0, 1}) {
        PlotPhg(halvern(), mode, 0);
        const auto circles = Circles();
        ASSERT_EQ(circles.size(), cases.size());
        for (std::size_t i = 0; i < cases.size(); ++i) {
            const auto& [report, power, height, gain] = cases[i];
            EXPECT_NEAR(circles[i].c, Degrees(power, height, gain, mode == 0 ? 2 : 4), 1e-6) << report;
            EXPECT_EQ(circles[i].a, 73);
            EXPECT_EQ(circles[i].b, 40);
        }
    }
}

TEST_F(Phg, KilledAndFilteredStationsHaveNone)
{
    Row("!010000z4000.00N/07300.00W-", 'X');
    Row("!010000z4000.00N/07300.00W-");
    Row("!010000z4000.00N/07300.00W_");
    Row(";010000z4000.00N/07300.00W_");
    PlotPhg(halvern(), 0, 0);
    EXPECT_EQ(Circles().size(), 3U);
    PlotPhg(halvern(), 0, 3);
    EXPECT_EQ(Circles().size(), 1U);
    halvern().Engine.JustSymbolsOn = true;
    halvern().Engine.JustTable = "/";
    halvern().Engine.JustCode = "-";
    PlotPhg(halvern(), 0, 0);
    EXPECT_EQ(Circles().size(), 2U);
    halvern().Engine.JustTable = "\\/";
    halvern().Engine.JustCode = "-_";
    PlotPhg(halvern(), 0, 0);
    EXPECT_EQ(Circles().size(), 2U);
}

TEST_F(Phg, TheItemsDrawAtOnceAndAfterEveryMap)
{
    Row("!010000z4000.00N/07300.00W-");
    main().PlotPhgFixedMenu.Click();
    main().PlotPhgMobileMenu.Click();
    auto circles = Circles();
    ASSERT_EQ(circles.size(), 2U);
    EXPECT_DOUBLE_EQ(circles[0].c, circles[1].c * 2);
    main().ScaleCombo.Click(5);
    circles = Circles();
    ASSERT_EQ(circles.size(), 2U);
    EXPECT_GT(circles[0].c, circles[1].c); // fixed first
    main().PlotPhgFixedMenu.Click();
    EXPECT_TRUE(Circles().empty());
    EXPECT_FALSE(main().PlotPhgFixedMenu.Checked());
}

TEST_F(Phg, TheBeamPushesTheCircle)
{
    for (char digit = '0'; digit <= '9'; ++digit) Row(std::string("!010000z4000.00N/07300.00W-PHG513") + digit);
    PlotPhg(halvern(), 0, 0);
    const double push = Degrees(25, 20, 1.9952623, 2) / (0.015625 * 2) / 64, half = push * std::sqrt(0.5);
    const std::pair<double, double> expected[] = {{0, 0},     {half, -half},  {0, -push}, {-half, -half},
                                                  {-push, 0}, {-half, +half}, {0, push},  {half, half},
                                                  {push, 0},  {0, 0}};
    const auto circles = Circles();
    for (int i = 0; i < 10; ++i) {
        EXPECT_NEAR(circles[i].b - 40, expected[i].first, 1e-4) << i;
        EXPECT_NEAR(circles[i].a - 73, expected[i].second, 1e-4) << i;
    }
}

} // namespace
} // namespace halvern::test
