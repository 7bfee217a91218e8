// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "state/Halvern.h"

namespace halvern {

/// Pi as the map has it. Frames, and so pictures that operators compare, depend on its last digit.
inline constexpr double MapPi = 3.1416;

/// Where the maps of the whole country are centred.
inline constexpr float UsaCenterLat = 38 + 32 / 60.0;
inline constexpr float UsaCenterLon = 95 + 57 / 60.0;
inline constexpr double UsaRange = 1024;
/// The top step of the ladder, the one that is no power of two.
inline constexpr double WidestRange = 8000;

/// Within this latitude the middle of a view stays that is moved by hand; nearer to a pole it is all width, no height.
inline constexpr float FurthestLat = 84;

/// The number of a step of the ladder: what stands two columns behind the "=". 0 for a text without a number.
double RangeOfStep(std::string_view step);

/// Works out the frame from the range and the centre, clears and rescales both surfaces and, when `MapSyncPending`
/// is set, shows the step in the ladder and tells of the new view by `OnNewView`, which draws the map.
///
/// @throws RuntimeFailure for a centre so near to a pole that a degree of longitude has no width
void MapSetGeometry(Halvern& halvern);

/// Keeps the present centre and range as the view that Zoom Last goes back to.
void KeepView(MapState& view);

/// Goes to another view without keeping the present one.
void ShowView(Halvern& halvern, float latitude, float longitude, double range);

/// Keeps the present view as the previous one and goes to another. Degrees, west positive; range in nautical miles.
void GoToView(Halvern& halvern, float latitude, float longitude, double range);

/// Centres the map on the own station, at the present range.
void GoHome(Halvern& halvern);

/// Moves the view by quarters of its width and height, around the world but not over a pole. Does nothing to a bitmap
/// map, whose view is the picture's.
void MoveByQuarters(Halvern& halvern, int west, int north);

/// Moves the view by degrees, around the world but not over a pole, and keeps the present one as the previous. Does
/// nothing to a bitmap map, as above.
void MoveByDegrees(Halvern& halvern, double west, double north);

/// Steps closer on the ladder, or away for a negative number, as far as it goes; a place stays where it is in the view.
/// Does nothing where the operator can't choose a range, and where the range is at its end already.
void ZoomAbout(Halvern& halvern, double latitude, double longitude, int closer);
/// The same about the middle of the view.
void ZoomAboutMiddle(Halvern& halvern, int closer);

/// Lets the surfaces fill the map window; draws nothing.
void ResizeMap(Halvern& halvern);

} // namespace halvern
