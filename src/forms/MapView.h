// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <memory>
#include <optional>
#include <vector>

#include "forms/Looks.h"
#include "forms/MapFurniture.h"
#include "forms/MapStations.h"
#include "forms/PlaceLayer.h"
#include "forms/SpriteLayer.h"
#include "forms/Trails.h"
#include "platform/qt/screen/MapPainter.h"
#include "state/Halvern.h"

namespace halvern {

/// The map on the screen: the picture of `Map1` with the stations above it. The pointer's doings go to `Map1` in view
/// coordinates, or to the station under the pointer.
class MapView final : public QWidget {
    Q_OBJECT
public:
    MapView(Halvern& halvern, const Looks& looks, PlaceNames& places, QWidget* parent = nullptr);
    QSize sizeHint() const override { return {800, 600}; }
    /// What stands on one of the map's surfaces, without stations, fine enough for paper; nothing for another control.
    QImage PictureOf(const Control& surface) const;
    /// Degrees, north and west positive.
    struct Place {
        double latitude, longitude;
    };
    Place PlaceAt(QPointF pixel) const;

signals:
    void PointerMoved(double latitude, double longitude);
    void PointerLeft();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;
    bool event(QEvent* event) override;

private:
    void BeginPan(QPoint at);
    void EndPan(bool move);
    void OpenGroundMenu(QPoint at, const Place& place);
    void SettleSprites();
    QRegion Settle(QSize viewSize);
    void TellNamesTrouble();
    void MoveBand();
    void PaintPanned(QPainter& painter, const QImage& image);
    void UsePointer();
    void SettleFurniture();
    void SettleLegend();
    QFont LabelFont() const;

    Halvern& halvern;
    const Looks& looks;
    MapForm& form;
    struct Drawn {
        Surface* surface;
        std::unique_ptr<MapPainter> painter;
    };
    std::vector<Drawn> drawn; ///< Map1, and the surfaces that stay off the screen
    QRegion bandAt;           ///< where the rubber band was last
    SpriteLayer sprites;
    MapStations stations;
    Trails trails;
    MapFurniture furniture;
    PlaceNames& places;
    PlaceLayer names;
    MapLegend* legend;
    std::optional<QPoint> panFrom; ///< where the middle button went down
    QPoint panBy;                  ///< how far the picture is held from its place since then
    bool namesAsked = false;
    int wheelTurn = 0; ///< what the wheel has turned since the last whole step
};

} // namespace halvern
