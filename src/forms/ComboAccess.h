// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace halvern {

/// From now on a combo box that cannot be typed in is spoken by its name and what is chosen, "Map range: 4096".
void LetCombosSayTheirName();

} // namespace halvern
