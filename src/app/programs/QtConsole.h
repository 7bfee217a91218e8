// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>

#include "app/console/ConsoleStation.h"

namespace halvern {

/// Runs a console in the event loop of the application object. Where it is not simulated it takes its folder and the
/// real world.
///
/// @param measure  what a picture measures, see OutsideWorld
/// @param show     puts windows on the station before it starts, if there are any; what it returns lives as long as
///                 the station runs
/// @return the exit status
int RunInEventLoop(const ConsoleOptions& options, decltype(OutsideWorld::measure) measure,
                   const std::function<std::shared_ptr<void>(ConsoleStation&)>& show);

} // namespace halvern
