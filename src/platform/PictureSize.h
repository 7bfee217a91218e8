// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string_view>

namespace halvern {

struct PixelSize {
    int width = 0, height = 0;
};

/// Width and height in pixels of a GIF, PNG, BMP or JPEG file from its head, or nothing for another or a short file.
std::optional<PixelSize> PictureSize(std::string_view bytes);

/// The same of a picture that is all there, as far as its outer form tells without decoding it, and that memory can
/// hold.
std::optional<PixelSize> WholePictureSize(std::string_view bytes);

} // namespace halvern
