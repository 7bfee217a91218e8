// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace halvern {

class MapStations;

/// Lets a screen reader see a map as a picture with the stations in view as its children, until it is forgotten.
void MakeReadable(QWidget& map, MapStations& stations);
void ForgetReadable(QWidget& map);

/// Tells a screen reader which station of a map has the ring now; -1 for none.
void TellChosen(QWidget& map, int station);

} // namespace halvern
