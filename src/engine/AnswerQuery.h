// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "state/Halvern.h"

namespace halvern {

/// Answers a query of the station in hand: a general one, or one directed to the own station. Only the first six
/// characters say which, and their case counts. The answer goes out at once.
/// Source: APRS protocol reference, chapter 15.
/// @throws RuntimeFailure where a station's heard counts do not fit the answer
void AnswerQuery(Halvern& halvern, std::string_view query);

} // namespace halvern
