// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <optional>

#include "app/console/ConsoleOptions.h"
#include "app/console/ConsoleSession.h"
#include "platform/simulated/KeptDrawing.h"

namespace halvern {

/// A station with a console around it: what it says becomes lines, and what it draws is noted. Where it is simulated,
/// so are its clock, its timers and its ports; otherwise they are left to whoever runs it.
struct ConsoleStation {
    /// @param measure  what a picture measures, see OutsideWorld
    ConsoleStation(const ConsoleOptions& options, decltype(OutsideWorld::measure) measure);
    /// Where no windows make pictures of the map, another program makes them when they are asked for.
    void KeepPictures();

    SystemClock systemClock;
    SimulatedTime time;
    NotedDialogs dialogs;
    DiskFiles files;
    Halvern halvern;
    NotedDrawing map{halvern.MapFrm.Map1}, picture{halvern.MapFrm.Pic1};
    std::optional<SimulatedPorts> ports;
    /// How lines come in is left to whoever runs it.
    ConsoleWorld world{halvern, dialogs, map, picture};

private:
    std::deque<KeptDrawing> kept;
};

} // namespace halvern
