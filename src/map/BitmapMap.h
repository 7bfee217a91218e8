// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

namespace halvern {

/// Makes the picture that is selected in `BitMapCombo` the map, with the view that its calibration file gives. Without
/// a calibration, or with a bad one, the operator is told and the view stays.
///
/// @throws RuntimeFailure where the picture itself is missing or none
void DrawBitmapMap(Halvern& halvern);

/// A picture was selected in `BitMapCombo`, by the operator or by code. Draws nothing while the selectors are filled.
void PictureSelected(Halvern& halvern);

} // namespace halvern
