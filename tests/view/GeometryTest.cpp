// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/MapStation.h"

namespace halvern::test {
namespace {

class Geometry : public MapStation {
protected:
    Geometry()
    {
        ShowMap();
        GoToView(halvern(), 40, 73, 1024);
        MapsDrawn();
    }
};

TEST_F(Geometry, TheFrameIsFourByThreeOnTheGroundWithWestAtTheLeft)
{
    GoToView(halvern(), 60, 10, 60);
    EXPECT_FLOAT_EQ(view().MapTopLat, 61);
    EXPECT_FLOAT_EQ(view().MapBottomLat, 59);
    const float halfLon = 60 * 4 / (std::cos(60 * 3.1416 / 180) * 3 * 60);
    EXPECT_NEAR(halfLon, 2.66668, 1e-5); // not 2.66667: the map has its own pi
    EXPECT_FLOAT_EQ(view().MapLeftLon, 10 + halfLon);
    EXPECT_FLOAT_EQ(view().MapRightLon, 10 - halfLon);
    for (auto* surface : {&halvern().MapFrm.Map1, &halvern().MapFrm.Pic1}) {
        EXPECT_EQ(surface->Frame().left, view().MapLeftLon);
        EXPECT_EQ(surface->Frame().bottom, view().MapBottomLat);
    }
}

TEST_F(Geometry, ACodedChangeDrawsOnceAlsoWhereTheStepStaysTheSame)
{
    GoToView(halvern(), 41, 74, 1024);
    EXPECT_THAT(MapsDrawn(), ElementsAre(3));
    GoToView(halvern(), 41, 74, 8);
    EXPECT_THAT(MapsDrawn(), ElementsAre(3));
    EXPECT_EQ(main().ScaleCombo.Text(), "Map Range = 8");
    EXPECT_EQ(main().ScaleCombo.Count(), 14);
    EXPECT_EQ(view().PrevRange, 1024);
    EXPECT_FALSE(view().MapSyncPending);
}

TEST_F(Geometry, ThePoleHasNoWidth)
{
    EXPECT_THROW(GoToView(halvern(), std::numeric_limits<float>::infinity(), 0, 64), RuntimeFailure);
    EXPECT_THROW(GoToView(halvern(), 1e38F, 3e38F, 1e40), RuntimeFailure);
    EXPECT_NO_THROW(GoToView(halvern(), 90, 0, 64)); // the map's pi misses the zero
}

TEST_F(Geometry, TheSurfacesFillTheWindow)
{
    auto& form = halvern().MapFrm;
    EXPECT_EQ(form.Map1.Width(), 400);
    EXPECT_EQ(form.Pic1.Height(), 300);
    form.SetPlace({0, 0, 0, 0, Place::Minimised});
    EXPECT_FALSE(main().Toolbar1.Enabled());
    form.SetPlace({600 * 15, 0, 0, 800 * 15, 0});
    EXPECT_TRUE(main().Toolbar1.Enabled());
    EXPECT_EQ(form.Map1.Width(), 800);
    for (int i = 0; i < 2; ++i) form.SetClientSize(790, 570); // a real window knows its frame
    EXPECT_EQ(form.Pic1.Width(), 790);
    EXPECT_EQ(form.Map1.Height(), 570);
    EXPECT_THAT(MapsDrawn(), IsEmpty());
}

TEST_F(Geometry, TheDragBoxTakesItselfAwayBeforeItIsDrawnAnew)
{
    MapCommand(halvern(), "PanMap");
    halvern().MapFrm.Map1.OnMouseDown(MouseButton::Left, 73, 40);
    station.map.Take();
    halvern().MapFrm.Map1.OnMouseMove(72, 39);
    halvern().MapFrm.Map1.OnMouseMove(71.5, 38);
    EXPECT_THAT(Drawn(),
                ElementsAre("box 73,40 73,40 15", "box 73,40 72,39 15", "box 73,40 72,39 15", "box 73,40 71.5,38 15"));
    EXPECT_EQ(main().StatusBar2.Caption(), "38 -71.5");
}

} // namespace
} // namespace halvern::test
