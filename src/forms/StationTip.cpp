// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/StationTip.h"

#include <QBuffer>

#include "forms/Glyphs.h"
#include "forms/SpriteLayer.h"

namespace halvern {
namespace {

/// The symbol's picture, fine enough for any screen.
QString PictureTag(const std::string& file)
{
    static SymbolPictures pictures(2);
    const auto& pixmap = pictures.Of(file);
    if (pixmap.isNull()) return {};
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    pixmap.save(&buffer, "PNG");
    const auto size = pixmap.deviceIndependentSize().toSize();
    return QStringLiteral("<img width=%1 height=%2 style=\"vertical-align:middle\" src=\"data:image/png;base64,%3\">")
        .arg(size.width())
        .arg(size.height())
        .arg(QString::fromLatin1(bytes.toBase64()));
}

QString Escaped(const std::string& text)
{
    return Shown(text).toHtmlEscaped();
}

QString Heading(const StationCard& card)
{
    return PictureTag(card.picture) + "&nbsp;<b>" + Escaped(card.call) + "</b>&nbsp; " + Escaped(card.symbol);
}

} // namespace

QString RichText(const StationCard& card)
{
    if (card.call.empty()) return {};
    QString lines;
    for (const auto& [word, text] : card.lines)
        lines += QStringLiteral("<tr><td style=\"white-space:pre\">%1&nbsp; </td><td>%2</td></tr>")
                     .arg(QObject::tr(word), Escaped(text));
    return "<div>" + Heading(card) + "</div><table cellspacing=0 cellpadding=1>" + lines + "</table>";
}

QString SpokenText(const StationCard& card)
{
    QStringList lines;
    for (const auto& [word, text] : card.lines) lines += QObject::tr(word) + ": " + Shown(text);
    return lines.join('\n');
}

QString RichText(const StationCard& uppermost, const std::vector<StationCard>& covered, std::size_t more)
{
    auto text = RichText(uppermost);
    if (covered.empty()) return text;
    text += "<hr>";
    for (const auto& card : covered) text += "<div>" + Heading(card) + "</div>";
    if (more > 0) text += "<div>" + QObject::tr("and %1 more").arg(more) + "</div>";
    return text;
}

CardView::CardView(QWidget* parent) : QLabel(parent)
{
    setObjectName("StationCard");
    setTextFormat(Qt::RichText);
    setWordWrap(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setVisible(false);
}

void CardView::Show(const StationCard& card)
{
    setText(RichText(card));
    setAccessibleName(Shown(card.call) + " " + Shown(card.symbol));
    setAccessibleDescription(SpokenText(card));
    setVisible(!card.call.empty());
}

} // namespace halvern
