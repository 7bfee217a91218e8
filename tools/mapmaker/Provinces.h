// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Feature.h"

#include <filesystem>

namespace halvern::mapmaker {

/// The borders between the first-level areas of the countries that GSHHG has none for, from the layer
/// "states_provinces" of the world map in Debian's package qgis-common (Natural Earth). Each carries the mean size of
/// its country's areas; where that is small they count as counties. Throws std::runtime_error with the file's name when
/// it can't be read.
std::vector<Feature> LoadProvinces(const std::filesystem::path& file);

} // namespace halvern::mapmaker
