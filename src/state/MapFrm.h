// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/Form.h"
#include "platform/PictureSize.h"
#include "platform/Surface.h"

namespace halvern {

/// The map window. `Pic1` is the off-screen twin of `Map1`; stations float above `Map1` as pictures and labels.
struct MapForm : Form {
    explicit MapForm(Controls& all) : Form(all, "MapFrm", "Map") {}

    Surface Map1{*this, "Map1"};
    Surface Pic1{*this, "Pic1"};
    Surface Pic2{*this, "Pic2"};
    Surface PrintPicBox{*this, "PrintPicBox"};
    /// All that maps are drawn on.
    std::array<Surface*, 4> Surfaces() { return {&Map1, &Pic1, &Pic2, &PrintPicBox}; }
    SpriteArray<PictureSprite> SymPic{*this, "SymPic"};
    SpriteArray<LabelSprite> SymLbl{*this, "SymLbl"};

    /// The view has changed, by whatever room: its reader draws the map anew, exactly once.
    Event OnNewView;

    std::string Activated; ///< "n" once the first activation is through
};

/// Where a station stands on the map. Record i belongs to row i of `PosLst`.
struct StationPlotRecord {
    float Lat = 0; ///< degrees, north positive
    float Lon = 0; ///< degrees, west positive
    int Color = 0; ///< label colour, by number
    std::string Caption;
    bool Shown = false;
    std::string SymFile; ///< full path of the picture
};

/// The one view that all map drawing shares. Degrees, north positive and west positive; `MapLeftLon` is the larger.
/// Only view/ and map/ write it, and config/ what the settings file says; others call `ShowView` and `GoToView`. The
/// record of a station is engine/'s too.
struct MapState {
    double MapRange = 1024; ///< half the height of the view, nautical miles
    double PrevRange = 1024;
    float MapCenterLat = 38 + 32 / 60.0;
    float MapCenterLon = 95 + 57 / 60.0;
    float PrevCenterLat = 38 + 32 / 60.0;
    float PrevCenterLon = 95 + 57 / 60.0;
    float MapHalfLat = 0, MapHalfLon = 0;
    float MapTopLat = 0, MapBottomLat = 0, MapLeftLon = 0, MapRightLon = 0;
    bool ZoomDown = false, ZoomMoved = false;
    float ZoomStartX = 0, ZoomStartY = 0, ZoomLastX = 0, ZoomLastY = 0;
    bool MapBusy = false;
    bool MapSyncPending = false;
    bool MapLinesDrawn = false;

    std::vector<StationPlotRecord> StationPlot;
    /// Of the symbol files that were asked for in this run; nothing for one that can't be loaded, which was told then.
    std::unordered_map<std::string, std::optional<PixelSize>> SymbolSizes;
    int PopStation = 0; ///< the station whose pop-up menu is open
    std::string FindCall;
};

/// Highest index of StationPlot; one more row of `PosLst` makes the stores start again.
inline constexpr int LastStation = 32000;

} // namespace halvern
