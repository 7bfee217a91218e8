// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <functional>
#include <optional>

#include "forms/MapView.h"

namespace halvern {

/// Takes the operator's next click on the map as a place. Until then the map stands in front, the pointer is a cross,
/// and the main window takes nothing but that click, Escape, and what moves the map. It deletes itself when it is done.
class PlacePicker final : public QObject {
    Q_OBJECT
public:
    /// Gets the place, or nothing where the operator gave up.
    using Done = std::function<void(std::optional<MapView::Place>)>;
    PlacePicker(MapView& map, Done done);
    /// Gives up.
    void End() { Finish({}); }

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    bool Pointer(QWidget* widget, const QMouseEvent* event);
    bool Key(const QKeyEvent* event);
    void Finish(std::optional<MapView::Place> place);

    MapView& map;
    Done done;
    bool pressed = false; ///< on the map, so that the release is the click
};

} // namespace halvern
