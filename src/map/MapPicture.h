// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

/// The map outside of the program: in a file and on paper.
namespace halvern {

/// Asks whether the symbols come along, and where to, and saves the picture in BMP form: with symbols the whole
/// screen, without them the map alone.
/// @throws RuntimeFailure when the file can't be written
void SaveMap(Halvern& halvern);

/// Lets the operator choose a printer, asks for the ground, and prints the map as large as the page allows. The symbols
/// float above the map, and are not printed.
/// @throws RuntimeFailure when the printer refuses
void PrintMap(Halvern& halvern);
/// Takes the selected printer of `ChosePrinter` and closes it.
void PickPrinter(Halvern& halvern);

} // namespace halvern
