// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <optional>
#include <string>
#include <string_view>

#include "platform/PictureSize.h"

namespace halvern {

/// The picture of a plain file, or a null one where there is none that can be shown.
QImage LoadedPicture(const std::string& file);

/// What a picture measures that can be shown whole: it has an end, and every byte of it makes sense.
std::optional<PixelSize> ShownSize(std::string_view bytes);

} // namespace halvern
