// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "map/Places.h"
#include "state/Halvern.h"

namespace halvern {

/// What is known of a station, for the eye: put together out of the stores when it is asked for, and kept nowhere.
struct StationCard {
    std::string call;
    std::string symbol;  ///< its name, or nothing where it has none
    std::string picture; ///< the full path of the symbol's file
    /// One line of a card.
    struct Line {
        const char* word;
        std::string text;
    };
    std::vector<Line> lines; ///< only what there is something to say of
};

/// The card of row `station` of `PosLst`; an empty one where there is no such row.
StationCard CardOf(const Halvern& halvern, int station, PlaceNames& places);

/// What operators call the symbol of a table or overlay and a code, or nothing.
std::string SymbolName(char table, char code);

} // namespace halvern
