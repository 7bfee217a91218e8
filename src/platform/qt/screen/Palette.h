// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>

namespace halvern {

/// The 16 colours of maps and labels as they look on the screen: each keeps its family, and each but black is bright
/// enough to be read on black. A number outside 0 to 15 is white.
QColor PaletteColour(int number);

} // namespace halvern
