// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QImage>
#include <QRectF>
#include <QRegion>

#include "platform/Surface.h"
#include "platform/qt/screen/DisplayList.h"

class QPainter;

namespace halvern {

/// Draws what comes to a surface, and keeps it as a list, so that a picture of any size can be made of it at any time.
///
/// Nothing is painted until somebody asks for the picture: a map of a million points costs its points once, however
/// often the view was changed meanwhile.
class MapPainter final : public Painter {
public:
    explicit MapPainter(Surface& surface);
    ~MapPainter() override;
    MapPainter(const MapPainter&) = delete;
    MapPainter& operator=(const MapPainter&) = delete;

    /// The map as it stands, on its ground, without the rubber band.
    ///
    /// @param size   in pixels of an ordinary screen
    /// @param ratio  device pixels to each of those
    /// @return a picture that is good until the next call or drawing operation
    const QImage& Image(QSize size, qreal ratio = 1);

    /// The net of the map as it stands.
    NetLines Net() const;

    /// Where the rubber band is, in pixels of a picture of that size.
    std::optional<QRectF> Band(QSizeF size) const;
    /// Draws a rubber band so that it is seen on any ground: white dashes on a dark line.
    static void DrawBand(QPainter& painter, const QRectF& band);
    /// Where DrawBand draws.
    static QRegion BandRegion(const QRectF& band);

    /// Called when there is something new to see, once until the next Image.
    std::function<void()> OnChange;
    /// Called when the rubber band was drawn at another place; it goes with a change of all.
    std::function<void()> OnBand;

    void Clear() override;
    void SetFrame(const ViewFrame& frame) override;
    void Point(double x, double y, int colour) override;
    void LineTo(double x, double y, int colour) override;
    /// The last box is the rubber band; it goes with the next Clear.
    void Box(double x1, double y1, double x2, double y2, int colour) override;
    void Circle(double x, double y, double radius, int colour) override;
    void Picture(const std::string& file, int width, int height) override;
    void Keep(Painter& other) override;
    void WhitenGround() override;
    /// Of the surface's size, on an ordinary screen.
    std::string Bitmap() override;

private:
    DisplayList& Changed();
    const QImage& Layers(QSize size, qreal ratio);

    Surface& surface;
    std::vector<std::shared_ptr<DisplayList>> kept; ///< the lasting picture, from the ground up
    std::shared_ptr<DisplayList> list;              ///< above it; copied before it changes when others keep it
    ViewFrame frame;
    std::optional<ViewFrame> band;
    QImage image; ///< all layers together, where there is more than one
    bool stale = false;
    bool whiteGround = false;
};

} // namespace halvern
