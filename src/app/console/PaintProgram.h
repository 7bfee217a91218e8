// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace halvern {

/// Has the program halvern-paint make a picture of a drawing, see KeptDrawing.
/// @return the bytes of a BMP file, or nothing where that program is missing or fails
std::string PaintedElsewhere(const std::string& drawing);

} // namespace halvern
