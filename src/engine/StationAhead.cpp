// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/StationAhead.h"

#include "platform/FetchAhead.h"
#include "platform/Text.h"
#include "state/Rows.h"

namespace halvern {
namespace {

constexpr std::size_t ChunkHeader = 16; ///< what the allocator keeps in front of a text and writes when it is freed

void FetchText(const List& list, int row)
{
    if (row == NotFound || row >= list.Count()) return;
    const auto& text = list.Row(row);
    FetchAhead(text.data() - ChunkHeader, ChunkHeader + text.size());
}

} // namespace

StationAhead::StationAhead(const Halvern& halvern, std::string_view line) : halvern(halvern)
{
    const auto call = line.substr(0, line.find('>'));
    const auto field = CallField(call);
    const auto& map = halvern.MapFrm;
    const auto& positions = halvern.PositionFrm.PosLst;
    const auto& paths = halvern.DigiFrm.DigiLst;
    const auto& grid = halvern.HeardFrm.HeardGrid;
    position = positions.Find(field);
    path = paths.Find(field);
    const int heard = grid.FindRow(call, 1);
    if (position != NotFound) FetchAhead(positions.Row(position));
    if (path != NotFound) FetchAhead(paths.Row(path));
    if (heard != NotFound) FetchAhead(grid.Cell(heard, grid.Cols() - 1));
    if (position < 0 || position >= static_cast<int>(halvern.Map.StationPlot.size())) return;
    FetchAhead(halvern.Map.StationPlot[position]);
    if (map.SymPic.Exists(position)) FetchAhead(map.SymPic(position));
    if (map.SymLbl.Exists(position)) FetchAhead(map.SymLbl(position));
}

void StationAhead::FetchTexts() const
{
    FetchText(halvern.PositionFrm.PosLst, position);
    FetchText(halvern.DigiFrm.DigiLst, path);
}

} // namespace halvern
