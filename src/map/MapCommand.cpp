// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/MapCommand.h"

#include "map/Find.h"
#include "map/MapKind.h"
#include "map/MapPicture.h"
#include "view/Geometry.h"

namespace halvern {
namespace {

void PanMap(Halvern& halvern)
{
    auto& main = halvern.ConMdiFrm;
    const bool on = !main.PanMapMenu.Checked();
    main.PanMapMenu.SetChecked(on);
    main.Toolbar1Button(1).SetChecked(on);
    halvern.MapFrm.Map1.SetMousePointer(on ? Pointer::CrossHair : Pointer::Default);
}

void ZoomLast(Halvern& halvern)
{
    const auto& view = halvern.Map;
    if (view.PrevCenterLat == 0 || view.PrevCenterLon == 0) return;
    ShowView(halvern, view.PrevCenterLat, view.PrevCenterLon, view.PrevRange);
}

/// Goes to the whole country. Only the centre is kept for Zoom Last: it then goes back to that place at the range
/// that the operator kept before, so that a look at the country does not cost him that range.
void ZoomUsa(Halvern& halvern)
{
    halvern.Map.PrevCenterLat = halvern.Map.MapCenterLat;
    halvern.Map.PrevCenterLon = halvern.Map.MapCenterLon;
    ShowView(halvern, UsaCenterLat, UsaCenterLon, UsaRange);
}

/// Marks a kind of map and shows the selectors that it needs.
void ChangeKind(Halvern& halvern, MenuItem& kind)
{
    auto& main = halvern.ConMdiFrm;
    for (auto* item : {&main.UsgsMapMenu, &main.DosMapMenu, &main.BitMapMenu}) item->SetChecked(item == &kind);
    ShowMapSelectors(halvern);
}

/// Goes to lines. Nothing is drawn: the map on the screen stays until the next change of the view.
void ShowUsgs(Halvern& halvern)
{
    ChangeKind(halvern, halvern.ConMdiFrm.UsgsMapMenu);
}

void ShowDos(Halvern& halvern)
{
    ChangeKind(halvern, halvern.ConMdiFrm.DosMapMenu);
}

/// Goes to pictures, which have a view of their own, so that the zoom-and-pan mode ends. Draws the first one.
void ShowBitMap(Halvern& halvern)
{
    auto& main = halvern.ConMdiFrm;
    if (main.BitMapCombo.Count() == 0 && !ListBitmaps(halvern))
        throw RuntimeFailure(failure::FileNotFound,
                             "File not found: no picture in '" +
                                 halvern.Outside.files.Shown(halvern.ProgramFolder + "\\bitmap") + "'");
    ChangeKind(halvern, main.BitMapMenu);
    main.PanMapMenu.SetChecked(false);
    main.Toolbar1Button(1).SetChecked(false);
    halvern.MapFrm.Map1.SetMousePointer(Pointer::Arrow);
    main.BitMapCombo.Preselect(-1); // the first one is drawn also where it was the last one shown
    main.BitMapCombo.Select(0);
}

struct Command {
    std::string_view word;
    void (*run)(Halvern&);
};

constexpr Command Commands[] = {
    {"PanMap", PanMap},     {"ZoomLast", ZoomLast},  {"ZoomUSA", ZoomUsa},  {"FindCallSign", FindCallSign},
    {"PrintMap", PrintMap}, {"SaveBitMap", SaveMap}, {"UsgsMap", ShowUsgs}, {"DosMap", ShowDos},
    {"BitMap", ShowBitMap},
};

} // namespace

void MapCommand(Halvern& halvern, std::string_view word)
{
    halvern.Map.ZoomDown = halvern.Map.ZoomMoved = false;
    for (const auto& command : Commands)
        if (command.word == word) return command.run(halvern);
}

} // namespace halvern
