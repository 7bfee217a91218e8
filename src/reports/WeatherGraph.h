// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

/// Graphs of what weather stations have reported, read out of the raw packets of this run.
namespace halvern {

/// Collects the reports of the station in `WeatherFrm` and shows the chosen graph, or the compass for the wind. What is
/// missing is told. A graph whose first value is exactly 0 opens the compass: an empty graph is how it knows the wind.
void ComputeWeather(Halvern& halvern);

/// The compass comes up with its first report.
void ShowFirstWind(CompassForm& form);

/// Plays the wind reports one after another, a second each. Pressed again, or closed, it stops.
void RunWindSimulation(Halvern& halvern);

/// An unloaded compass forgets its reports.
void ForgetWind(CompassForm& form);

} // namespace halvern
