// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

/// The file that a weather program on this machine keeps writing.
namespace halvern {

/// `WXSoft` has run out: counts, and when it is time reads the file and sends what it says.
///
/// A file of another kind is told and closes every port: a station must not go on without the weather that it claims to
/// have. One that can't be read, or is half written, sends nothing and leaves the timer off.
/// @throws RuntimeFailure for a file that can't be read
void WeatherFileTick(Halvern& halvern);

} // namespace halvern
