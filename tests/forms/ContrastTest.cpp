// SPDX-License-Identifier: GPL-3.0-or-later
#include <QPalette>
#include <cmath>

#include "forms/Tints.h"
#include "platform/qt/screen/Palette.h"

namespace halvern::test {
namespace {

/// How strongly two colours differ in brightness, 1 to 21: the contrast ratio of the web's accessibility guidelines.
double Contrast(const QColor& one, const QColor& other)
{
    const auto light = [](const QColor& colour) {
        const auto part = [](double c) { return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
        return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) + 0.0722 * part(colour.blueF()) + 0.05;
    };
    return std::max(light(one), light(other)) / std::min(light(one), light(other));
}

TEST(Colours, StandOutFromTheirGroundInLightAndInDark)
{
    const QColor black = PaletteColour(0), grid = PaletteColour(1);
    EXPECT_LT(Contrast(grid, black), 3) << "the grid stays behind coasts and borders";
    for (int number = 2; number < 16; ++number) EXPECT_GE(Contrast(PaletteColour(number), black), 4.5) << number;
    for (const auto& [text, base, window] :
         {std::tuple("#000000", "#ffffff", "#efefef"), {"#ffffff", "#191919", "#323232"}}) {
        QPalette palette;
        palette.setColor(QPalette::Text, text), palette.setColor(QPalette::Base, base);
        for (const auto mark : {Mark::Good, Mark::Busy, Mark::Warning, Mark::Bad})
            EXPECT_GE(Contrast(MarkColour(mark), window), 3) << window << ' ' << static_cast<int>(mark);
        const auto quiet = QuietColour(palette);
        EXPECT_GE(Contrast(quiet, base), 4.5) << base;
        for (const char* const row : {"A>B::C", "A>B:;C", "A>B:)C", "A>B:T#1", "A>B:>C", "A>B:_1"}) {
            const auto tint = TintOfPacket(row);
            const auto on = [&tint](float of, float under) { return of * tint.alphaF() + under * (1 - tint.alphaF()); };
            const QColor under = base;
            const auto ground = QColor::fromRgbF(on(tint.redF(), under.redF()), on(tint.greenF(), under.greenF()),
                                                 on(tint.blueF(), under.blueF()));
            EXPECT_NE(ground, under) << row;
            for (const auto& words : {QColor(text), quiet})
                EXPECT_GE(Contrast(words, ground), 4.5) << base << ' ' << row;
        }
    }
}

} // namespace
} // namespace halvern::test
