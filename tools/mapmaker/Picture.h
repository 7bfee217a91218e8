// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Geometry.h"

#include <filesystem>
#include <vector>

namespace halvern::mapmaker {

/// Draws lines as a picture of `width` by `height` pixels that shows exactly `frame`: a GIF file in the palette of the
/// maps, and beside it the calibration text of the same name with the frame's top, left, bottom and right edge,
/// longitudes east positive. Throws std::runtime_error when a file can't be written.
void DrawPicture(const std::filesystem::path& gif, const Box& frame, int width, int height,
                 const std::vector<DrawnLine>& lines);

} // namespace halvern::mapmaker
