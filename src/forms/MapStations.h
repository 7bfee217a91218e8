// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QKeyEvent>
#include <QWidget>

#include "forms/SpriteLayer.h"
#include "map/StationCard.h"

class QMenu;

namespace halvern {

/// What the operator does with the stations on a map: a tip under the pointer, a menu for those that lie on each other,
/// and a walk from one to the next by keys, with a ring around the one that is chosen.
class MapStations {
public:
    MapStations(Halvern& halvern, SpriteLayer& sprites, PlaceNames& places, QWidget& view);
    ~MapStations();
    MapStations(const MapStations&) = delete;
    MapStations& operator=(const MapStations&) = delete;

    /// N and P go on and back, Return tells about the chosen one, Shift+F10 opens its menu, Escape chooses none.
    /// @return whether the key is done with
    bool Press(const QKeyEvent& key);
    /// Puts the ring around a station, or none for -1, and tells a screen reader.
    void Choose(int station);
    /// The same for the one at a place.
    void ChooseAt(QPoint place) { Choose(sprites.At(place)); }
    void OpenInformation(int station);
    /// Opens a station's menu below its symbol.
    void OpenMenu(int station);
    /// Opens a menu of all at a place where there are several. @return whether there are
    bool OpenPileMenu(QPoint place);

    /// What the tip at a place says.
    QString TipAt(QPoint place) const;
    StationCard Card(int station) const { return CardOf(halvern, station, places); }
    /// What the view shows, in a sentence.
    QString Description() const;
    const SpriteLayer& Sprites() const { return sprites; }
    QWidget& View() const { return view; }

private:
    void Walk(int step);

    Halvern& halvern;
    SpriteLayer& sprites;
    PlaceNames& places;
    QWidget& view;
};

} // namespace halvern
