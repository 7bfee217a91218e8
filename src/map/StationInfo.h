// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

/// The pop-up menu of a station on the map, whose row is `PopStation`, and the look-up on the web.
namespace halvern {

/// Who sends the object of a row of `PosLst`: the row ends with his call in angle brackets.
std::string SenderOf(std::string_view row);

/// Shows what kind of station it is and when it reported last.
void ShowInformation(Halvern& halvern);
/// Asks the weather window for this station.
void ShowWeatherOf(Halvern& halvern);
/// Asks for a call and shows what a public data base of stations holds of it, in the system's browser.
void LookUpOnTheWeb(Halvern& halvern);

} // namespace halvern
