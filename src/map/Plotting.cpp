// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/Plotting.h"

namespace halvern {

void NewSymbol(Halvern&, int, std::string_view, const std::string&, std::string_view, float, float) {}
void PlaceSymbol(Halvern&, int, float, float) {}
void ChangeSymbol(Halvern&, int, const std::string&) {}
void ReplotStations(Halvern&) {}
void PlotPhg(Halvern&, int, int) {}

} // namespace halvern
