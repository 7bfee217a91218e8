// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/MapKind.h"

#include <array>

#include "platform/Text.h"

namespace halvern {
namespace {

std::string ArchiveMissing(const Halvern& halvern, const std::string& kind, const std::string& folder)
{
    return kind + " Data is missing. The following directory structure is not found " + halvern.ProgramFolder + folder +
           " Please fetch the map data archive from the home page of Halvern and install it there."
           " Halvern will close when you click on the Ok button.";
}

bool IsPicture(std::string_view file)
{
    const auto dot = file.rfind('.');
    if (dot == std::string_view::npos) return false;
    const auto extension = UpperCase(file.substr(dot + 1));
    return extension == "BMP" || extension == "JPG" || extension == "GIF";
}

} // namespace

void ShowMapSelectors(Halvern& halvern)
{
    auto& main = halvern.ConMdiFrm;
    for (MenuItem* kind : {&main.UsgsMapMenu, &main.DosMapMenu, &main.BitMapMenu}) kind->SetEnabled(!kind->Checked());
    const bool bitmaps = main.BitMapMenu.Checked();
    main.dMapTxt.SetVisible(main.DosMapMenu.Checked() && !bitmaps);
    main.BitMapCombo.SetVisible(bitmaps);
    main.ScaleTxt.SetVisible(bitmaps);
    main.ScaleCombo.SetVisible(!bitmaps);
    for (MenuItem* item : {&main.PanMapMenu, &main.ZoomLastMenu, &main.ZoomUSAmenu}) item->SetEnabled(!bitmaps);
    for (int button = 1; button <= 3; ++button) main.Toolbar1Button(button).SetEnabled(!bitmaps);
}

void ChooseDosMapsByDefault(Halvern& halvern)
{
    auto& main = halvern.ConMdiFrm;
    if (main.UsgsMapMenu.Checked() || main.BitMapMenu.Checked()) return;
    main.DosMapMenu.SetChecked(true);
    ShowMapSelectors(halvern);
}

void SettleMapKind(Halvern& halvern)
{
    auto& main = halvern.ConMdiFrm;
    MenuItem* first = &main.DosMapMenu;
    for (MenuItem* kind : {&main.BitMapMenu, &main.DosMapMenu, &main.UsgsMapMenu})
        if (kind->Checked()) first = kind;
    for (MenuItem* kind : {&main.UsgsMapMenu, &main.DosMapMenu, &main.BitMapMenu}) kind->SetChecked(kind == first);
    ShowMapSelectors(halvern);
}

bool ListBitmaps(Halvern& halvern)
{
    auto& combo = halvern.ConMdiFrm.BitMapCombo;
    combo.Clear();
    for (const auto& file : halvern.Outside.files.Names(halvern.ProgramFolder + "\\bitmap"))
        if (IsPicture(file)) combo.Add(file);
    return combo.Count() > 0;
}

std::string DosMapsMissing(const Halvern& halvern)
{
    return ArchiveMissing(halvern, "Dos Map", "\\Dosmaps");
}

std::string BitmapsMissing(const Halvern& halvern)
{
    return "The " + halvern.ProgramFolder +
           "\\bitmap subdirectory contains no map files. You need to manually add map.bmp or map.jpg or map.gif files "
           "and map.txt or map.inf files to the \\bitmap subdirectory in order to use Bitmaps as maps with Halvern. "
           "Halvern will close when you click on the OK Button.";
}

std::string MapDataFault(const Halvern& halvern)
{
    const auto& main = halvern.ConMdiFrm;
    const auto& files = halvern.Outside.files;
    const auto& folder = halvern.ProgramFolder;
    if (main.UsgsMapMenu.Checked() && !files.Exists(folder + "\\mapdata\\s01_PB.GRF"))
        return ArchiveMissing(halvern, "USGS Map", "\\mapdata");
    if (main.DosMapMenu.Checked() && !files.Exists(folder + "\\dosmaps\\usa.map")) return DosMapsMissing(halvern);
    if (main.BitMapMenu.Checked() && files.Names(folder + "\\bitmap").empty())
        return "Bitmap Map Data is missing. The following directory structure is not found " + folder +
               "\\bitmap Please manually add bitmap.bmp and bitmap.txt files to the " + folder +
               "\\bitmap subdirectory. Halvern will close when you click on the OK button.";
    return {};
}

} // namespace halvern
