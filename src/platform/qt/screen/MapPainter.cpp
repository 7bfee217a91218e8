// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/screen/MapPainter.h"

#include <span>
#include <utility>

#include <QBuffer>
#include <QPainter>

namespace halvern {

MapPainter::MapPainter(Surface& surface) : surface(surface), list(std::make_shared<DisplayList>(surface.Frame()))
{
    frame = surface.Frame();
    surface.Attach(*this);
}

MapPainter::~MapPainter()
{
    surface.Detach(*this);
}

/// To be called before each change. @return the list, which is then this surface's alone.
DisplayList& MapPainter::Changed()
{
    if (list.use_count() > 1) {
        list = std::make_shared<DisplayList>(*list);
        list->ForgetImage();
    }
    if (!stale) {
        stale = true;
        list->ForgetImage();
        if (OnChange) OnChange();
    }
    return *list;
}

void MapPainter::Clear()
{
    kept.clear();
    list = std::make_shared<DisplayList>(frame);
    band.reset();
    whiteGround = false;
    Changed();
}

void MapPainter::SetFrame(const ViewFrame& next)
{
    frame = next;
    Changed().SetFrame(next);
}

void MapPainter::Point(double x, double y, int colour)
{
    Changed().Point(static_cast<float>(x), static_cast<float>(y), colour);
}

void MapPainter::LineTo(double x, double y, int colour)
{
    Changed().LineTo(static_cast<float>(x), static_cast<float>(y), colour);
}

void MapPainter::Circle(double x, double y, double radius, int colour)
{
    Changed().Circle(static_cast<float>(x), static_cast<float>(y), static_cast<float>(radius), colour);
}

void MapPainter::Picture(const std::string& file, int width, int height)
{
    const QSizeF share(static_cast<double>(width) / surface.Width(), static_cast<double>(height) / surface.Height());
    Changed().Picture(file, share);
}

void MapPainter::Box(double x1, double y1, double x2, double y2, int)
{
    band = ViewFrame{x1, y1, x2, y2};
    if (OnBand) OnBand();
}

void MapPainter::Keep(Painter& other)
{
    auto* from = dynamic_cast<MapPainter*>(&other);
    if (from == nullptr) return;
    auto layers = from->kept;
    if (!from->list->Empty() || layers.empty()) layers.push_back(from->list);
    kept = std::move(layers);
    list = std::make_shared<DisplayList>(frame);
    stale = false;
    Changed();
}

void MapPainter::WhitenGround()
{
    whiteGround = true;
    Changed();
}

std::string MapPainter::Bitmap()
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    Image({surface.Width(), surface.Height()}).save(&buffer, "BMP");
    return bytes.toStdString();
}

const QImage& MapPainter::Image(QSize size, qreal ratio)
{
    const auto& layers = Layers(size, ratio);
    if (!whiteGround) return layers;
    image = layers.copy();
    for (int y = 0; y < image.height(); ++y)
        for (auto& pixel :
             std::span(reinterpret_cast<QRgb*>(image.scanLine(y)), static_cast<std::size_t>(image.width())))
            if ((pixel & 0xFFFFFF) == 0) pixel = qRgb(255, 255, 255);
    return image;
}

/// All layers together, on black.
const QImage& MapPainter::Layers(QSize size, qreal ratio)
{
    const bool fresh = !std::exchange(stale, false);
    const auto devicePixels = (QSizeF(size) * ratio).toSize().expandedTo({1, 1});
    auto layers = kept;
    if (!list->Empty() || layers.empty()) layers.push_back(list);
    const auto& ground = layers.front()->Image(devicePixels, ratio);
    if (layers.size() == 1) return ground;
    if (fresh && image.size() == devicePixels && image.devicePixelRatio() == ratio) return image;
    image = ground;
    image.setDevicePixelRatio(1);
    for (std::size_t i = 1; i < layers.size(); ++i) layers[i]->DrawOn(image, ratio);
    image.setDevicePixelRatio(ratio);
    return image;
}

NetLines MapPainter::Net() const
{
    auto net = list->Net();
    for (const auto& layer : kept) {
        auto below = layer->Net();
        net.parallels.merge(below.parallels);
        net.meridians.merge(below.meridians);
    }
    return net;
}

std::optional<QRectF> MapPainter::Band(QSizeF size) const
{
    if (!band) return {};
    const auto x = [&](double degrees) { return (frame.left - degrees) / (frame.left - frame.right) * size.width(); };
    const auto y = [&](double degrees) { return (frame.top - degrees) / (frame.top - frame.bottom) * size.height(); };
    return QRectF(QPointF(x(band->left), y(band->top)), QPointF(x(band->right), y(band->bottom))).normalized();
}

QRegion MapPainter::BandRegion(const QRectF& band)
{
    const auto outer = band.toAlignedRect().adjusted(-2, -2, 3, 3);
    return QRegion(outer) - QRegion(outer.adjusted(6, 6, -6, -6));
}

void MapPainter::DrawBand(QPainter& painter, const QRectF& bandInPixels)
{
    painter.save();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::black, 3));
    painter.drawRect(bandInPixels);
    painter.setPen(QPen(Qt::white, 1, Qt::DashLine));
    painter.drawRect(bandInPixels);
    painter.restore();
}

} // namespace halvern
