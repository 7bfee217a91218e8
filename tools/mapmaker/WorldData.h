// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

namespace halvern::mapmaker {

/// Folders that hold the sources: the netCDF files of GSHHG and the package us-atlas; and the file of the world's
/// provinces.
struct WorldSources {
    std::filesystem::path gshhg;
    std::filesystem::path usAtlas;
    std::filesystem::path provinces;
};

/// Makes all the data that Halvern ships, in `data`: dosmaps, maplist, mapdata and a picture in bitmap. Files of
/// earlier makes with the same names are replaced. Prints a table of what was made. Throws std::runtime_error when a
/// source can't be read or a file can't be written.
void MakeWorld(const WorldSources& sources, const std::filesystem::path& data);

} // namespace halvern::mapmaker
