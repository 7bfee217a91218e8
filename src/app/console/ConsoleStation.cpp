// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/console/ConsoleStation.h"

#include <cstdio>

#include "app/console/PaintProgram.h"
#include "platform/ApplicationFolder.h"

namespace halvern {

ConsoleStation::ConsoleStation(const ConsoleOptions& options, decltype(OutsideWorld::measure) measure)
    : files(options.simulate ? PathForm::AsWritten : PathForm::System),
      halvern({options.simulate ? static_cast<const Clock&>(time) : systemClock, dialogs, files, measure},
              StationFolder(options.directory))
{
    world.Print = [](const std::string& line) { std::printf("%s\n", line.c_str()); };
    if (!options.simulate) return;
    time.Drive(halvern.All);
    world.time = &time;
    world.ports = &ports.emplace(halvern.All);
}

void ConsoleStation::KeepPictures()
{
    for (auto* surface : halvern.MapFrm.Surfaces()) kept.emplace_back(*surface, PaintedElsewhere);
}

} // namespace halvern
