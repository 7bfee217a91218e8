// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QRegion>
#include <QString>
#include <vector>

#include "forms/SpriteLayer.h"
#include "map/Places.h"

class QPainter;

namespace halvern {

/// The names of places below the stations. Which places a view names is settled once for the view; which of them have
/// room is settled again whenever stations move, since a name gives way to a label. The largest place chooses first.
class PlaceLayer {
public:
    PlaceLayer(const MapForm& form, const MapState& view, PlaceNames& names) : form(form), view(view), names(names) {}

    /// Takes over the view and the room that the stations leave. @return what is to be painted anew
    QRegion Settle(QSize size, const QFont& font, const SpriteLayer& sprites, const QRect& scale);
    /// Paints what stands in a region; the painter is clipped to it.
    void Paint(QPainter& painter, const QRegion& region) const;
    bool Settled() const { return settled; }
    /// The room is to be shared anew, although no station moved.
    void Forget() { settled = false; }

private:
    struct Name {
        QString text;
        bool large = false;
        QPoint dot;
        QSize size;
        int side = -1; ///< of the dot that the text stands on; -1 where it finds no room
        QRect Box(int side) const;
    };
    void TakeView(QSize size, const QFont& font);
    QFont FontOf(const Name& name) const;

    const MapForm& form;
    const MapState& view;
    PlaceNames& names;
    bool settled = false;
    ViewFrame frame;
    QSize size; ///< empty before the first view
    QFont font;
    std::vector<Name> shown;
    std::vector<char> squares; ///< which parts of the view are taken, kept for its memory
};

} // namespace halvern
