// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "state/Halvern.h"

namespace halvern {

/// The plot record of a station. @throws RuntimeFailure where there is none
StationPlotRecord& PlotRecord(Halvern& halvern, int index);

/// Width and height of a picture file in pixels.
/// @throws RuntimeFailure when it is missing or can't be shown
PixelSize SizeOfPicture(const Halvern& halvern, const std::string& file);

/// Puts a new station's picture and label on the map.
/// A symbol that can't be loaded is told once in a run.
///
/// @param index      its row in `PosLst`
/// @param dataField  the report from its type character on
/// @param latitude   degrees, north positive; `longitude` west positive
/// @throws RuntimeFailure when the picture can't be loaded
void NewSymbol(Halvern& halvern, int index, std::string_view dataField, const std::string& symFile,
               std::string_view call, float latitude, float longitude);

/// Moves a station's pair, and shows it.
void PlaceSymbol(Halvern& halvern, int index, float latitude, float longitude);

/// Takes a station's pair off the map until it is placed again. Without a pair it does nothing.
void HideSymbol(Halvern& halvern, int index);

/// Loads another picture for a station, and keeps its file in the plot record.
/// @throws RuntimeFailure when the picture can't be loaded
void ChangeSymbol(Halvern& halvern, int index, const std::string& symFile);

/// Lays out every station anew for the present view. Reads no file and no row.
void ReplotStations(Halvern& halvern);

/// What every line map ends with: the picture of `Pic1` becomes the lasting one of `Map1`, and the stations find their
/// places in the new view, unless this was the first map of the run, which has no stations yet.
void FinishLineMap(Halvern& halvern);

} // namespace halvern
