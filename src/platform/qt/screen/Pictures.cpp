// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/screen/Pictures.h"

#include "platform/Files.h"

namespace halvern {
namespace {

QImage Decoded(std::string_view bytes)
{
    return QImage::fromData(reinterpret_cast<const uchar*>(bytes.data()), static_cast<int>(bytes.size()));
}

} // namespace

QImage LoadedPicture(const std::string& file)
{
    const auto bytes = DiskFiles().Read(file);
    return bytes ? Decoded(*bytes) : QImage();
}

std::optional<PixelSize> ShownSize(std::string_view bytes)
{
    const auto size = WholePictureSize(bytes);
    return size && !Decoded(bytes).isNull() ? size : std::nullopt;
}

} // namespace halvern
