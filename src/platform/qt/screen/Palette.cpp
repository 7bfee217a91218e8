// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/screen/Palette.h"

#include <array>

#include "platform/Surface.h"

namespace halvern {

QColor PaletteColour(int number)
{
    static constexpr std::array<QRgb, 16> colours{
        0xFF000000, // black: the ground, and exactly 0, so that a print can tell it
        0xFF1E3862, // blue: the net of the shipped maps, to be seen behind everything else where it is looked for
        0xFF3FB05C, // green
        0xFF2FB0BE, // cyan
        0xFFEB5A5A, // red
        0xFFC46BD0, // magenta
        0xFFC08A45, // brown
        0xFFC3C9CE, // white
        0xFF8C949B, // grey
        0xFF9AC2FF, // light blue
        0xFF7CE694, // light green
        0xFF74E8F2, // light cyan
        0xFFFF938A, // light red
        0xFFF0A5F5, // light magenta
        0xFFFFE066, // yellow
        0xFFFFFFFF, // bright white
    };
    const bool known = number >= 0 && number < static_cast<int>(colours.size());
    return QColor::fromRgba(colours[static_cast<std::size_t>(known ? number : colour::White)]);
}

} // namespace halvern
