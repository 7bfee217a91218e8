// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Feature.h"

#include <filesystem>

namespace halvern::mapmaker {

/// The first-level areas of the countries for which no other source has them all.
struct Provinces {
    /// The borders between them. Each carries the mean size of its country's areas; where that is small they count as
    /// counties.
    std::vector<Feature> borders;
    std::vector<Path> rings; ///< the areas' outlines
};

/// Reads the layer "states_provinces" of the world map in Debian's package qgis-common (Natural Earth). Throws
/// std::runtime_error with the file's name when it can't be read.
Provinces LoadProvinces(const std::filesystem::path& file);

} // namespace halvern::mapmaker
