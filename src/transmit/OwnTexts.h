// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "state/SetUpfrm.h"

/// The station's own texts, formed afresh from the live settings.
namespace halvern {

/// The call with its SSID; SSID 0 is left out.
std::string OwnCallOf(const SetUpForm& setUp);

/// Symbol table and symbol code of the picked symbol; an overlay character takes the table's place.
std::string OwnSymbol(const SetUpForm& setUp);

/// A station with this symbol sends its position with its weather reports only.
bool HasWeatherSymbol(const SetUpForm& setUp);
/// Is there an overlay character? A blank is none.
bool HasOverlay(const SetUpForm& setUp);

/// Latitude, symbol table, longitude, symbol code.
std::string OwnPlace(const SetUpForm& setUp, std::string_view symbol);

/// "PHG" and the four list indices, and what is wanted behind them; "PHG5130" where all four stand at their first
/// entry.
std::string OwnPhg(const SetUpForm& setUp, const std::string& behind = "");

/// "=", position, symbol, range information, a blank and the comment: a position payload ready for the air.
std::string OwnPosition(const SetUpForm& setUp);
/// The same with another text in the place of the range information.
std::string OwnPosition(const SetUpForm& setUp, const std::string& phg);
/// The same for another place than the settings tell, each coordinate with its side.
std::string OwnPosition(const SetUpForm& setUp, const std::string& latitude, const std::string& longitude,
                        const std::string& extension);

/// ">" and the status text.
std::string OwnStatus(const SetUpForm& setUp);

} // namespace halvern
