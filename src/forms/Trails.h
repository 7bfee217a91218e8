// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QObject>
#include <QRegion>
#include <vector>

#include "forms/Looks.h"
#include "state/Halvern.h"
#include "view/Ground.h"

class QPainter;
class QWidget;

namespace halvern {

/// The last places of stations that move, as lines that fade with age. Nothing is collected while they are switched
/// off; what was is forgotten then. They lie in a picture of their own, which is drawn anew once a minute and for a new
/// view; a station that moves adds its own few pixels.
class Trails final : public QObject {
public:
    static constexpr std::size_t MostPlaces = 50, MostPlacesInAll = 500000;

    /// @param view  what is to be painted anew
    Trails(Halvern& halvern, const Looks& looks, QWidget& view);

    /// Paints what stands in a region; the painter is clipped to it.
    void Paint(QPainter& painter, const QRegion& region);
    /// The places of a station, the oldest first.
    std::vector<GroundPoint> PlacesOf(int station) const;
    /// Has the picture drawn anew when it is painted next.
    void Age() { drawnAt = {}; }

private:
    struct Place {
        float lat, lon;
        int minute; ///< when it was told, of the clock
    };
    using Trail = std::vector<Place>;
    struct Stroke {
        Place from, to;
    };

    void Switch(bool on);
    void Note(int station);
    void MakeRoom();
    int Minute() const;
    QPoint PixelOf(const Place& place) const;
    void Draw();
    void DrawFresh();

    Halvern& halvern;
    QWidget& view;
    bool on = false;
    std::vector<Trail> trails; ///< by the station's row
    std::size_t places = 0;    ///< of all trails
    std::size_t hand = 0;      ///< the next trail to be shortened where there are too many
    std::vector<Stroke> fresh; ///< not drawn yet

    QImage picture;
    ViewFrame frame; ///< what the picture shows
    QPointF scale;   ///< pixels a degree
    std::optional<int> drawnAt;
};

} // namespace halvern
