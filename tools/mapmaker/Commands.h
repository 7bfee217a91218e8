// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "MapFile.h"

#include <filesystem>
#include <string>
#include <vector>

namespace halvern::mapmaker {

/// What the operator's commands have in common.
struct Task {
    std::vector<std::filesystem::path> inputs; ///< vector files
    std::filesystem::path data;                ///< the program's folder, which holds dosmaps, maplist, mapdata, bitmap
    std::filesystem::path rules;               ///< rule file; empty: all lines in `colour`
    int colour = 7;
    Box frame;            ///< top at or below bottom: as large as the lines are
    double tolerance = 0; ///< degrees by which lines may be off
};

/// One map from vector files, and its place in the list.
struct LinesTask : Task {
    std::string name; ///< 1 to 8 letters, digits, - or _
    BodyFormat format = BodyFormat::Ascii;
    int unitsPerDegree = 10000;
    int widest = 0; ///< range steps to enter into the list; 0: none
    int narrowest = 0;
};

/// Lines from vector files into the maps that the list has for a run of range steps.
struct AddTask : Task {
    bool append = false; ///< keep the lines of earlier additions
    bool remove = false; ///< read no files, only take the lines of earlier additions out
    int unitsPerDegree = 10000;
    int widest = 0;
    int narrowest = 0;
};

/// Region tiles of one layer from vector files.
struct TilesTask : Task {
    std::string layer;   ///< PB, RDI, RDL or WB
    bool append = false; ///< keep what the tiles hold
};

/// A calibrated picture from vector files.
struct PictureTask : Task {
    std::string name;
    int width = 1200;
};

/// The commands. All print what they made and throw std::runtime_error, fit to be shown to the operator, when they
/// can't.
void MakeLines(const LinesTask& task);
void AddToMaps(const AddTask& task);
void RemoveMap(const Task& task, const std::string& name);
void MakeTiles(const TilesTask& task);
void MakePicture(const PictureTask& task);

} // namespace halvern::mapmaker
