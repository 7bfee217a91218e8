// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "state/Halvern.h"

namespace halvern {

/// Files an object as a position under its own name, with the station that sent it at the end of the comment. An own
/// object that another station sends is that station's from now on.
/// @return false when the stores had to start again, which ends the handling of the line
bool ReceiveObject(Halvern& halvern, const std::string& info);

/// Files a status text. The own station's stands in row 0, with the time of now.
void ReceiveStatus(Halvern& halvern, const std::string& info);

/// Files a packet of a type that has no decoder among the status texts, without touching a real status.
void ReceiveUnknownType(Halvern& halvern, const std::string& info);

/// Keeps the path of the line in hand for a call field; "None" where it has no path.
void KeepPath(Halvern& halvern, const std::string& callField);

} // namespace halvern
