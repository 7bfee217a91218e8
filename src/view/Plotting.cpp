// SPDX-License-Identifier: GPL-3.0-or-later
#include "view/Plotting.h"

#include <algorithm>
#include <utility>

#include "platform/Text.h"

namespace halvern {
namespace {

/// The label colour of a new station tells what it was heard by.
int LabelColour(const EngineState& engine, char dataType)
{
    switch (dataType) {
    case '=':
    case '@':
    case '\'':
        return colour::White;
    case '!':
    case '/':
    case '$':
    case '`':
        return colour::Grey;
    case ')':
    case ';':
        return engine.SourceCall == engine.OwnCall ? colour::Brown : colour::Magenta;
    default:
        return colour::Red;
    }
}

/// Reads a symbol once in a run, and tells once that it can't be read; a report of no known table has no file, and that
/// is not the operator's. @throws RuntimeFailure then and every time
PixelSize SizeOfSymbol(Halvern& halvern, const std::string& file)
{
    auto& sizes = halvern.Map.SymbolSizes;
    const auto known = sizes.find(file);
    if (known != sizes.end() && known->second) return *known->second;
    if (known != sizes.end() || file.empty()) throw RuntimeFailure(failure::InvalidPicture, "Invalid picture");
    try {
        return *sizes.emplace(file, SizeOfPicture(halvern, file)).first->second;
    } catch (const RuntimeFailure& failure) {
        sizes.emplace(file, std::nullopt);
        halvern.Tell(failure);
        throw;
    }
}

void LoadPicture(Halvern& halvern, PictureSprite& picture, const std::string& file)
{
    const auto size = SizeOfSymbol(halvern, file);
    picture.file = file;
    picture.width = size.width;
    picture.height = size.height;
}

/// How the pair of a station stands around its place, in the present view. The picture stands centred above the
/// place; the label's top edge is level with it. Pictures keep their size on the screen, so their size in degrees is
/// taken afresh each time.
class Layout {
public:
    explicit Layout(const Halvern& halvern) : map(halvern.MapFrm.Map1), boxed(halvern.ConMdiFrm.BitMapMenu.Checked()) {}

    void Place(const StationPlotRecord& station, PictureSprite& picture) const
    {
        picture.top = static_cast<float>(station.Lat + map.UnitsHigh(picture.height));
        picture.left = static_cast<float>(station.Lon + map.UnitsWide(picture.width) / 2);
        picture.visible = station.Shown;
    }

    void Place(const StationPlotRecord& station, const PictureSprite& picture, LabelSprite& label) const
    {
        label.top = station.Lat;
        label.left = static_cast<float>(station.Lon + map.UnitsWide(picture.width));
        label.visible = station.Shown;
        label.border = boxed;
        label.ground = boxed ? colour::BrightWhite : colour::Black;
        label.colour = boxed ? colour::Black : station.Color;
        label.caption = station.Caption;
    }

private:
    const Surface& map;
    const bool boxed; ///< a photo or a scan needs contrast behind the letters
};

} // namespace

StationPlotRecord& PlotRecord(Halvern& halvern, int index)
{
    auto& plot = halvern.Map.StationPlot;
    if (index < 0 || index >= static_cast<int>(plot.size())) NoSuchRow();
    return plot[index];
}

PixelSize SizeOfPicture(const Halvern& halvern, const std::string& file)
{
    const auto& files = halvern.Outside.files;
    const auto bytes = files.Read(file);
    if (!bytes) throw RuntimeFailure(failure::FileNotFound, "File not found: '" + files.Shown(file) + "'");
    const auto size = halvern.Outside.measure(*bytes);
    if (!size) throw RuntimeFailure(failure::InvalidPicture, "Invalid picture: '" + files.Shown(file) + "'");
    return *size;
}

void NewSymbol(Halvern& halvern, int index, std::string_view dataField, const std::string& symFile,
               std::string_view call, float latitude, float longitude)
{
    auto& plot = halvern.Map.StationPlot;
    if (index < 0 || index > LastStation) NoSuchRow();
    PictureSprite picture;
    LabelSprite label;
    LoadPicture(halvern, picture, symFile); // first of all: where it fails the record of the row stays as it is
    if (index >= static_cast<int>(plot.size())) plot.resize(index + 1);
    auto& station = plot[index];
    station = {
        latitude, longitude, LabelColour(halvern.Engine, ColumnAt(dataField, 1)), std::string(TrimmedRight(call)),
        true,     symFile};
    const Layout layout(halvern);
    layout.Place(station, picture);
    layout.Place(station, picture, label);
    halvern.MapFrm.SymPic.Set(index, picture);
    halvern.MapFrm.SymLbl.Set(index, label);
}

void PlaceSymbol(Halvern& halvern, int index, float latitude, float longitude)
{
    auto& station = PlotRecord(halvern, index);
    auto& form = halvern.MapFrm;
    station.Shown = true;
    station.Lat = latitude;
    station.Lon = longitude;
    const Layout layout(halvern);
    form.SymPic.Alter(index, [&](PictureSprite& picture) { layout.Place(station, picture); });
    form.SymLbl.Alter(index, [&](LabelSprite& label) { layout.Place(station, form.SymPic(index), label); });
}

void HideSymbol(Halvern& halvern, int index)
{
    auto& plot = halvern.Map.StationPlot;
    if (index >= 0 && index < static_cast<int>(plot.size())) plot[index].Shown = false;
    halvern.MapFrm.SymPic.Show(index, false);
    halvern.MapFrm.SymLbl.Show(index, false);
}

void ChangeSymbol(Halvern& halvern, int index, const std::string& symFile)
{
    PlotRecord(halvern, index).SymFile = symFile;
    halvern.MapFrm.SymPic.Alter(index, [&](PictureSprite& picture) { LoadPicture(halvern, picture, symFile); });
}

void ReplotStations(Halvern& halvern)
{
    auto& form = halvern.MapFrm;
    const auto& plot = halvern.Map.StationPlot;
    const int known = std::min(form.SymPic.Count(), static_cast<int>(plot.size()));
    const int count = std::min(halvern.PositionFrm.PosLst.Count(), known);
    const Layout layout(halvern);
    form.SymPic.AlterFirst(count, [&](int i, PictureSprite& picture) { layout.Place(plot[i], picture); });
    form.SymLbl.AlterFirst(count, [&](int i, LabelSprite& label) { layout.Place(plot[i], form.SymPic(i), label); });
}

void FinishLineMap(Halvern& halvern)
{
    halvern.MapFrm.Map1.Keep(halvern.MapFrm.Pic1);
    if (std::exchange(halvern.Map.MapLinesDrawn, true)) ReplotStations(halvern);
}

} // namespace halvern
