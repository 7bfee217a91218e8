// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/screen/MapPainter.h"

#include <cmath>

#include <gtest/gtest.h>

#include "platform/qt/screen/Palette.h"
#include "state/MapFrm.h"
#include "support/Station.h"
#include "support/qt/Application.h"

namespace halvern {
namespace {

TEST(PaletteTest, NoColourIsLikeAnother)
{
    for (int number = colour::Blue; number <= colour::BrightWhite; ++number)
        for (int other = colour::Black; other < number; ++other) {
            const auto a = PaletteColour(number), b = PaletteColour(other);
            const int apart =
                std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) + std::abs(a.blue() - b.blue());
            EXPECT_GE(apart, 60) << number << " and " << other;
        }
    EXPECT_EQ(PaletteColour(-1), PaletteColour(99));
}

/// A map of 40 by 20 degrees on 400 by 200 pixels. A whole degree is the middle of each tenth pixel, from 20 west at
/// the left and 10 north at the top.
struct MapPainterTest : ::testing::Test {
    MapPainterTest()
    {
        for (auto* surface : {&form.Map1, &form.Pic1}) {
            surface->SetSize(400, 200);
            surface->SetFrame({20.05, 10.05, -19.95, -9.95});
        }
        map.OnChange = [this] { ++changes; };
    }
    /// The colour number at a place, 0 for the ground.
    int At(MapPainter& painter, int x, int y, qreal ratio = 1)
    {
        const auto pixel = painter.Image({400, 200}, ratio)
                               .pixelColor(static_cast<int>((x + 0.5) * ratio), static_cast<int>((y + 0.5) * ratio));
        int nearest = 0;
        for (int number = 0; number < 16; ++number) {
            const auto candidate = PaletteColour(number);
            if (Distance(pixel, candidate) < Distance(pixel, PaletteColour(nearest))) nearest = number;
        }
        return nearest;
    }
    static int Distance(const QColor& a, const QColor& b)
    {
        return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) + std::abs(a.blue() - b.blue());
    }
    static void Line(Surface& surface, double x1, double y1, double x2, double y2, int colour)
    {
        surface.Point(x1, y1, colour);
        surface.LineTo(x2, y2, colour);
    }

    Controls all;
    MapForm form{all};
    MapPainter map{form.Map1}, twin{form.Pic1};
    int changes = 0;
};

TEST_F(MapPainterTest, LinesStandWhereTheFramePutsThem)
{
    Line(form.Map1, 20, 0, -20, 0, colour::Red);       // from the left border to the right, in the middle
    form.Map1.LineTo(-20, -5, colour::Yellow);         // goes on from there in another colour
    form.Map1.LineTo(15, -5, colour::Yellow);          //
    Line(form.Map1, 10, 500, 10, -500, colour::Green); // crosses the whole map, from far outside
    Line(form.Map1, 500, 5, 400, 5, colour::Blue);     // is all outside
    for (const qreal ratio : {1.0, 2.0}) {
        EXPECT_EQ(At(map, 200, 100, ratio), colour::Red);
        EXPECT_EQ(At(map, 200, 150, ratio), colour::Yellow);
        EXPECT_EQ(At(map, 100, 20, ratio), colour::Green);
        EXPECT_EQ(At(map, 200, 50, ratio), colour::Black);
        EXPECT_EQ(At(map, 40, 150, ratio), colour::Black);
    }
    Line(form.Map1, 20, 7.33, -20, 7.33, colour::Blue); // between two rows of pixels
    Line(form.Map1, 7.48, 10, 7.48, -10, colour::Blue);
    const auto& image = map.Image({400, 200});
    EXPECT_EQ(image.pixelColor(300, 27), PaletteColour(colour::Blue)) << "as sharp as any other";
    EXPECT_EQ(image.pixelColor(300, 26).rgb() | image.pixelColor(300, 28).rgb(), qRgb(0, 0, 0));
    EXPECT_EQ(image.pixelColor(125, 160), PaletteColour(colour::Blue));
    EXPECT_EQ(map.Net().parallels, std::set<float>{7.33F});
    EXPECT_EQ(map.Net().meridians, std::set<float>{7.48F});
    changes = 0;
    for (int i = 0; i < 100; ++i) Line(form.Map1, 20, 3, -20, 3, colour::Green);
    EXPECT_EQ(changes, 1) << "watchers are told once until they look";
    EXPECT_EQ(At(map, 200, 70), colour::Green) << "on top of what was looked at";
    EXPECT_EQ(map.Image({1200, 600}).pixelColor(601, 301), map.Image({400, 200}).pixelColor(200, 100))
        << "another size draws the list anew";
}

TEST_F(MapPainterTest, KeepSharesTheFinishedPictureAndItsOwnLinesGo)
{
    Line(form.Map1, 20, 5, -20, 5, colour::Red);
    Line(form.Pic1, 20, 0, -20, 0, colour::Green);
    form.Map1.Keep(form.Pic1);
    EXPECT_EQ(At(map, 200, 50), colour::Black);
    EXPECT_EQ(At(map, 200, 100), colour::Green);
    EXPECT_EQ(map.Image({400, 200}).constBits(), twin.Image({400, 200}).constBits()) << "one picture for both";

    form.Map1.Circle(0, 0, 5, colour::White);
    EXPECT_EQ(At(map, 150, 100), colour::White);
    EXPECT_EQ(At(map, 220, 100), colour::Green);
    EXPECT_EQ(At(twin, 150, 100), colour::Green);

    Line(form.Pic1, 20, -5, -20, -5, colour::Red);
    EXPECT_EQ(At(twin, 300, 150), colour::Red);
    EXPECT_EQ(At(map, 300, 150), colour::Black) << "what is drawn later on the twin stays there";
    form.Pic1.Clear();
    EXPECT_EQ(At(map, 220, 100), colour::Green);
    form.Map1.Clear();
    EXPECT_EQ(At(map, 220, 100), colour::Black);
}

TEST_F(MapPainterTest, APictureCoversItsShareOfTheSurface)
{
    const test::TemporaryFolder folder;
    QImage file(10, 10, QImage::Format_RGB32);
    file.fill(PaletteColour(colour::Yellow));
    ASSERT_TRUE(file.save(QString::fromStdString(folder.Path() + "/Chart.png")));
    form.Map1.Picture(folder.Path() + "\\chart.PNG", 200, 200);
    form.Map1.Picture(folder.Path() + "/missing.png", 400, 200);
    EXPECT_EQ(At(map, 100, 100), colour::Yellow);
    EXPECT_EQ(At(map, 300, 100), colour::Black);
}

TEST_F(MapPainterTest, OnPaperTheGroundIsWhiteAndTheLinesStay)
{
    form.Pic2.SetSize(400, 200);
    MapPainter paper(form.Pic2);
    Line(form.Map1, 20, 0, -20, 0, colour::Red);
    form.Map1.Circle(0, 0, 5, colour::Green);
    form.Map1.Keep(form.Map1);
    form.Pic2.Keep(form.Map1);
    form.Pic2.WhitenGround();
    EXPECT_EQ(At(paper, 300, 20), colour::BrightWhite);
    EXPECT_EQ(At(paper, 100, 100), colour::Red);
    EXPECT_EQ(At(map, 300, 20), colour::Black);
    EXPECT_EQ(At(map, 150, 100), colour::Green) << "the map keeps all that stood on it";
    const auto bytes = form.Pic2.Bitmap();
    const auto saved = QImage::fromData(QByteArray::fromStdString(bytes), "BMP");
    EXPECT_EQ(saved.size(), QSize(400, 200));
    EXPECT_EQ(saved.pixelColor(300, 20), QColor(Qt::white));
    form.Pic2.Clear();
    EXPECT_EQ(At(paper, 300, 20), colour::Black);
}

} // namespace
} // namespace halvern
