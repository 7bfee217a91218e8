// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QFrame>
#include <QRect>
#include <QRegion>
#include <QString>
#include <optional>
#include <vector>

#include "platform/Surface.h"
#include "platform/qt/screen/DisplayList.h"

class QPainter;

namespace halvern {

/// What helps to read a map: the figures of its net at its edges, and its scale. It is laid out once for a view and
/// painted over the map's picture, never into it.
class MapFurniture {
public:
    /// Takes over a view, where it is another than before.
    void Settle(const ViewFrame& frame, QSize size, const QFont& font, qreal ratio, const NetLines& net);
    /// Something was drawn: the net may be another one.
    void Forget() { settled = false; }
    bool Settled(QSize nextSize, const QFont& nextFont, qreal nextRatio) const
    {
        return settled && nextSize == size && nextFont == font && nextRatio == ratio;
    }

    /// Both paint what stands in a region; the painter is clipped to it.
    void PaintFigures(QPainter& painter, const QRegion& region) const;
    void PaintScale(QPainter& painter, const QRegion& region) const;
    QRect ScaleBox() const { return scale.box; }

private:
    struct Figure {
        QRect box;
        QString text;
    };
    struct Scale {
        QRect box;
        QPoint corner;                         ///< of the two legs
        int wideMiles = 0, wideKilometres = 0; ///< pixels along the parallel in the middle of the view
        int highMiles = 0;                     ///< the same miles along a meridian: a view is seldom as wide as high
        QString miles, kilometres;
    };
    void LayOutFigures(const NetLines& net);
    void LayOutScale();

    bool settled = false;
    ViewFrame frame;
    QSize size;
    QFont font;
    qreal ratio = 1;
    std::vector<Figure> figures;
    Scale scale;
};

/// What the colours of the labels say, in a corner of the map. It takes its place itself.
class MapLegend final : public QFrame {
    Q_OBJECT
public:
    /// @param map the view it lies on.
    explicit MapLegend(QWidget* map);
    /// To the corner of a map of that size, or away where the map is too small for it.
    void Settle(QSize map);

signals:
    void PutAway();
};

} // namespace halvern
