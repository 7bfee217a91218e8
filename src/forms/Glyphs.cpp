// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/Glyphs.h"

namespace halvern {

std::string Typed(QString text, std::size_t longest)
{
    auto bytes = Typed(text);
    while (longest != 0 && bytes.size() > longest) {
        text.chop(text.back().isLowSurrogate() && text.size() > 1 ? 2 : 1);
        bytes = Typed(text);
    }
    return bytes;
}

QString Spoken(QString caption)
{
    caption.remove('&');
    while (caption.endsWith('.')) caption.chop(1);
    return caption;
}

} // namespace halvern
