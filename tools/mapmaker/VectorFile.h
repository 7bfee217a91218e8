// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Geometry.h"
#include "Rules.h"

#include <filesystem>
#include <vector>

namespace halvern::mapmaker {

/// All lines and outlines of areas in a vector file that GDAL reads, in degrees whatever the file's own system of
/// coordinates; points are left out. Throws std::runtime_error with the file's name when GDAL can't open it or knows no
/// way from its coordinates to degrees.
std::vector<DrawnLine> ReadVectorFile(const std::filesystem::path& file, const Rules& rules);

} // namespace halvern::mapmaker
