// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/Icons.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>

namespace halvern {
namespace {

/// The colour in which the icon files are drawn; it gives way to the palette's.
constexpr const char* DrawnColour = "#202020";

QByteArray Coloured(QByteArray drawing, const QColor& colour)
{
    return drawing.replace(DrawnColour, colour.name().toLatin1());
}

/// Draws its vectors at whatever size and scale is asked for.
class LineIconEngine final : public QIconEngine {
public:
    LineIconEngine(const QByteArray& drawing, const QPalette& palette)
        : plain(Coloured(drawing, palette.color(QPalette::Active, QPalette::ButtonText))),
          greyed(Coloured(drawing, palette.color(QPalette::Disabled, QPalette::ButtonText))),
          selected(Coloured(drawing, palette.color(QPalette::Active, QPalette::HighlightedText)))
    {
    }
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        QSvgRenderer(mode == QIcon::Disabled   ? greyed
                     : mode == QIcon::Selected ? selected
                                               : plain)
            .render(painter, rect);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect({}, size), mode, state);
        return pixmap;
    }
    QIconEngine* clone() const override { return new LineIconEngine(*this); }

private:
    QByteArray plain, greyed, selected;
};

QByteArray Drawing(const QString& name)
{
    QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray{};
}

} // namespace

QIcon LineIcon(const QString& name, const QPalette& palette)
{
    return QIcon(new LineIconEngine(Drawing(name), palette));
}

QIcon ProgramIcon()
{
    return QIcon(new LineIconEngine(Drawing("halvern"), QGuiApplication::palette()));
}

} // namespace halvern
