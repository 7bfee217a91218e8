// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/BitmapMap.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "map/Calibration.h"
#include "platform/Text.h"
#include "view/Plotting.h"

namespace halvern {
namespace {

constexpr const char* CalibrationFile = ".TXT or .INF";

std::string PictureFolder(const Halvern& halvern)
{
    return halvern.ProgramFolder + "\\bitmap\\";
}

void TellMissing(Halvern& halvern, const std::string& base)
{
    halvern.Tell(Icon::Stop, base + " Is missing its " + CalibrationFile + " file. To fix this error please copy the " +
                                 base + CalibrationFile + " file to the \\halvern\\bitmap sub-directory or remove " +
                                 base + " from the \\halvern\\bitmap sub-directory.");
}

void TellCorrupt(Halvern& halvern, const std::string& base)
{
    halvern.Tell(Icon::Stop, base + CalibrationFile + " file is corrupt. To fix this error please edit the " + base +
                                 CalibrationFile + " file and fix the format error.");
}

/// Reads the calibration of a picture. @return nothing where the operator was told why there is none
std::optional<Corners> CornersOf(Halvern& halvern, const std::string& base)
{
    const auto& files = halvern.Outside.files;
    const auto path = PictureFolder(halvern) + base;
    const bool txt = files.Exists(path + ".TXT");
    if (!txt && !files.Exists(path + ".INF")) {
        TellMissing(halvern, base);
        return {};
    }
    const auto bytes = files.Read(path + (txt ? ".TXT" : ".INF"));
    std::optional<Corners> corners;
    if (bytes) corners = txt ? ReadTxtCalibration(*bytes) : ReadInfCalibration(*bytes);
    if (!corners) TellCorrupt(halvern, base);
    return corners;
}

void TakeView(MapState& view, const Corners& corners)
{
    const auto top = static_cast<float>(corners.top), bottom = static_cast<float>(corners.bottom);
    const auto left = static_cast<float>(corners.left), right = static_cast<float>(corners.right);
    view.MapCenterLat = (bottom + top) / 2;
    view.MapCenterLon = (right + left) / 2;
    view.MapTopLat = top;
    view.MapBottomLat = bottom;
    view.MapLeftLon = left;
    view.MapRightLon = right;
    view.MapRange = RangeOfPicture(corners);
}

/// Paints the picture from the top left corner of the map, as large as fits with its own shape.
void PaintBitmap(Halvern& halvern, const std::string& path)
{
    auto& map = halvern.MapFrm.Map1;
    const auto picture = SizeOfPicture(halvern, path);
    halvern.MapFrm.Pic1.Picture(path, picture.width, picture.height);
    const double shape = static_cast<double>(picture.height) / picture.width;
    const bool tall = shape >= static_cast<double>(map.Height()) / map.Width();
    const int width = tall ? std::max(1, static_cast<int>(std::lround(map.Height() / shape))) : map.Width();
    const int height = tall ? map.Height() : std::max(1, static_cast<int>(std::lround(map.Width() * shape)));
    map.Picture(path, width, height);
}

} // namespace

void DrawBitmapMap(Halvern& halvern)
{
    auto& main = halvern.ConMdiFrm;
    auto& view = halvern.Map;
    const std::string name = main.BitMapCombo.Text();
    const auto corners = CornersOf(halvern, name.substr(0, name.find('.')));
    if (!corners) return;
    TakeView(view, *corners);
    main.ScaleTxt.SetText("Map Range = " + PlainNumber(view.MapRange));
    Surface* const surfaces[] = {&halvern.MapFrm.Map1, &halvern.MapFrm.Pic1};
    for (auto* surface : surfaces) {
        surface->Clear();
        surface->AutoRepaint = true;
    }
    try {
        PaintBitmap(halvern, PictureFolder(halvern) + name);
    } catch (const RuntimeFailure& failure) {
        halvern.Tell(failure); // the stations stand where they are also without a picture below them
    }
    for (auto* surface : surfaces)
        surface->SetFrame({view.MapLeftLon, view.MapTopLat, view.MapRightLon, view.MapBottomLat});
    if (std::exchange(view.MapLinesDrawn, true)) ReplotStations(halvern);
    view.MapBusy = false;
}

void PictureSelected(Halvern& halvern)
{
    if (!halvern.Map.MapBusy) DrawBitmapMap(halvern);
}

} // namespace halvern
