// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/Glyphs.h"

#include <QStringDecoder>

namespace halvern {

QString Shown(std::string_view bytes)
{
    const auto size = static_cast<qsizetype>(bytes.size());
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder.decode(QByteArrayView(bytes.data(), size));
    return decoder.hasError() ? QString::fromLatin1(bytes.data(), size) : text;
}

std::string Typed(const QString& text)
{
    return text.toStdString();
}

} // namespace halvern
