// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/MapCommand.h"

#include "map/Geometry.h"

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

enum class Kind { Usgs, Dos, BitMap };

/// Marks the chosen kind of map and shows the selectors that it needs. Nothing is drawn until the next view.
void ChangeKind(Halvern& halvern, Kind kind)
{
    auto& main = halvern.ConMdiFrm;
    const std::pair<MenuItem*, Kind> items[] = {
        {&main.UsgsMapMenu, Kind::Usgs}, {&main.DosMapMenu, Kind::Dos}, {&main.BitMapMenu, Kind::BitMap}};
    for (const auto& [item, its] : items) {
        item->SetChecked(its == kind);
        item->SetEnabled(its != kind);
    }
    const bool lines = kind != Kind::BitMap;
    for (auto* item : {&main.PanMapMenu, &main.ZoomLastMenu, &main.ZoomUSAmenu}) item->SetEnabled(lines);
    for (int button = 1; button <= 3; ++button) main.Toolbar1Button(button).SetEnabled(lines);
    main.dMapTxt.SetVisible(kind == Kind::Dos);
    main.BitMapCombo.SetVisible(!lines);
    main.ScaleCombo.SetVisible(lines);
    main.ScaleTxt.SetVisible(!lines);
}

struct Command {
    std::string_view word;
    void (*run)(Halvern&);
};

constexpr Command Commands[] = {
    {"PanMap", PanMap},
    {"ZoomLast", ZoomLast},
    {"ZoomUSA", ZoomUsa},
    {"UsgsMap", [](Halvern& halvern) { ChangeKind(halvern, Kind::Usgs); }},
    {"DosMap", [](Halvern& halvern) { ChangeKind(halvern, Kind::Dos); }},
};

} // namespace

void MapCommand(Halvern& halvern, std::string_view word)
{
    halvern.Map.ZoomDown = halvern.Map.ZoomMoved = false;
    for (const auto& command : Commands)
        if (command.word == word) return command.run(halvern);
}

} // namespace halvern
