// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

/// A reader of the shipped map data that shares nothing with the program's own: it takes no liberties and throws
/// std::runtime_error for whatever isn't exactly as the files' description has it.
namespace shipped {

struct Place {
    double lat, lon; // degrees, north and west positive
};

struct Polyline {
    int colour;
    std::vector<Place> places;
};

struct Map {
    double top, left, bottom, right;
    int widestStep, narrowestStep;
    bool packed; // LineFormat
    std::vector<Polyline> lines;
    std::size_t points;
};

struct Entry {
    std::string name;
    Place centre;
};

using List = std::map<int, std::vector<Entry>>; // by range step

std::string Bytes(const std::string& file);
Map ReadMap(const std::string& file);
List ReadList(const std::string& file);

/// The first of the entries nearest to a place, counted in 32-bit plain degrees.
const Entry& Nearest(const std::vector<Entry>& entries, const Place& place);

/// Half the height and width in degrees of a view.
Place HalfView(double range, double lat);

/// Whether some stretch of a line crosses the view.
bool ShowsSomething(const Map& map, const Place& centre, const Place& half);

} // namespace shipped
