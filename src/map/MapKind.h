// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "state/Halvern.h"

/// What start-up does about the kind of map in hand: DOS maps, USGS tiles, or pictures. One of the three menu items is
/// checked, and the checked one is disabled.
namespace halvern {

/// Shows the selectors that belong to the checked kind and hides the others; pictures have no view to zoom or pan.
void ShowMapSelectors(Halvern& halvern);

/// Makes the DOS maps the kind in hand, unless another kind is chosen already.
void ChooseDosMapsByDefault(Halvern& halvern);

/// Leaves one kind checked: the first that is, or the DOS maps where none is.
void SettleMapKind(Halvern& halvern);

/// Lists the pictures of the bitmap folder in `BitMapCombo`. @return false where there is none.
bool ListBitmaps(Halvern& halvern);

/// What the operator is told where the data of a kind of map are missing.
std::string DosMapsMissing(const Halvern& halvern);
std::string BitmapsMissing(const Halvern& halvern);

/// Whether the data of the checked kind are there. @return what is missing, or an empty text.
std::string MapDataFault(const Halvern& halvern);

} // namespace halvern
