// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include "state/Halvern.h"

namespace halvern {

/// The room of the map in its window: all of it for a map of lines. Where a picture is the map, as much as has the
/// picture's shape, so that the stations stand where the picture has their places.
class MapRoom final : public QWidget {
public:
    /// The map becomes the room's own.
    MapRoom(Halvern& halvern, QWidget* map);
    QSize sizeHint() const override { return map->sizeHint(); }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void Follow();

    Halvern& halvern;
    QWidget* map;
    QSize shape; ///< of the picture; empty for any shape
};

} // namespace halvern
