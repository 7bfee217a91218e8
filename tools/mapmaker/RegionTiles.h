// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Feature.h"

#include <array>
#include <filesystem>
#include <vector>

namespace halvern::mapmaker {

/// The 15 regions of the United States that have tiles, in their order.
extern const std::array<Box, 15> Regions;

/// One layer of a region as a file, e.g. "S07_RDI.GRF".
std::string TileName(std::size_t region, const std::string& layer);

/// The lines of a tile as text: one polyline a row, its colour (0 to 9) and 15 characters a point. Lines are clipped to
/// the region, vertices put in where two are far apart, and rows kept short: a reader that skips points outside its
/// view then joins few across the view's edge.
std::string TileText(const Box& region, const std::vector<DrawnLine>& lines);

/// Writes the four layers of every region into `folder`. PB has borders, WB coasts, lakes and rivers, RDI the country
/// and first-level borders, RDL the counties: no free road data is among the sources. Throws std::runtime_error when a
/// file can't be written.
void MakeRegionTiles(const std::vector<Feature>& features, const std::filesystem::path& folder);

} // namespace halvern::mapmaker
