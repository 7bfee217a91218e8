// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Feature.h"

#include <filesystem>

namespace halvern::mapmaker {

/// Readers of the GSHHG coasts, rivers and borders in their netCDF form, where the globe is cut into bins of equal
/// size. Lines that the bins cut are joined again. All throw std::runtime_error, with the file's name, when a file
/// can't be read.

/// Coasts and lakes, with the ice front of Antarctica as its coast.
std::vector<Feature> LoadShores(const std::filesystem::path& file);

/// Rivers, ranked as the source ranks them.
std::vector<Feature> LoadRivers(const std::filesystem::path& file);

/// Country borders and, in the Americas and Australia, first-level borders. Sea borders are left out.
std::vector<Feature> LoadBorders(const std::filesystem::path& file);

} // namespace halvern::mapmaker
