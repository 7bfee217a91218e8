// SPDX-License-Identifier: GPL-3.0-or-later
#include "Cells.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numbers>

namespace halvern::mapmaker {

namespace {

double Cosine(double lat)
{
    return std::cos(lat * std::numbers::pi / 180);
}

double HalfWidth(double range, double lat)
{
    return range * 4 / (Cosine(lat) * 3 * 60);
}

std::string NameOf(char letter, double north, double west)
{
    char name[16];
    std::snprintf(name, sizeof name, "%c%02.0f%c%03.0f%c", letter, std::abs(north), north < 0 ? 's' : 'n',
                  std::abs(west), west < 0 ? 'e' : 'w');
    return name;
}

/// The frame that covers every view at the level's widest step whose centre lies in `reach`.
Box FrameOf(const Level& level, const Box& reach)
{
    // The reader counts in 32-bit floats and a list entry has four decimals: cells' edges aren't exact.
    constexpr double Slack = 0.005;
    const double up = level.widest / 60.0 + Slack;
    const double side = Slack + SideMargin(level.widest, std::max(std::abs(reach.top), std::abs(reach.bottom)));
    // Centres past the date line choose the outermost cells too.
    const double beyond = level.cellLon / 2;
    const double west = reach.left + side + (reach.left >= 180 ? beyond : 0);
    const double east = reach.right - side - (reach.right <= -180 ? beyond : 0);
    return {std::min(90.0, reach.top + up), std::min(360.0, west), std::max(-90.0, reach.bottom - up),
            std::max(-360.0, east)};
}

int ColumnsOf(const Level& level, double south)
{
    const double columns = 360 / level.cellLon;
    if (!level.fewerPoleward) return static_cast<int>(columns);
    const double nearest = south >= 0 ? south : std::min(0.0, south + level.cellLat);
    return std::max(3, static_cast<int>(std::ceil(columns * Cosine(nearest))));
}

/// Finds by samples how far the places reach that each centre is the nearest for.
std::vector<Box> Reaches(const Level& level, const std::vector<Cell>& cells)
{
    const double step = level.cellLat / 20;
    std::vector<Box> reaches(cells.size(), {-1e9, -1e9, 1e9, 1e9});
    for (double lat = -90; lat <= 90; lat += step)
        for (double lon = -180; lon <= 180; lon += step) {
            const auto distance = [&](const Cell& cell) {
                return std::hypot(cell.centre.lat - lat, cell.centre.lon - lon);
            };
            const auto nearest = std::min_element(cells.begin(), cells.end(), [&](const Cell& one, const Cell& other) {
                return distance(one) < distance(other);
            });
            Box& reach = reaches[static_cast<std::size_t>(nearest - cells.begin())];
            reach = {std::max(reach.top, std::min(lat + step, 90.0)), std::max(reach.left, std::min(lon + step, 180.0)),
                     std::min(reach.bottom, std::max(lat - step, -90.0)),
                     std::min(reach.right, std::max(lon - step, -180.0))};
        }
    return reaches;
}

} // namespace

double SideMargin(double range, double lat)
{
    constexpr double Moderate = 60;
    constexpr double HalfTurn = 180;
    return std::min({HalfWidth(range, std::min(lat, 89.0)), std::max(Moderate, HalfWidth(range, 80)), HalfTurn});
}

std::vector<Cell> LayCells(const Level& level)
{
    std::vector<Cell> cells;
    std::vector<Box> reaches;
    const int rows = static_cast<int>(std::lround(180 / level.cellLat));
    for (int row = 0; row < rows; ++row) {
        const double south = 90 - (row + 1) * level.cellLat;
        const double north = south + level.cellLat;
        const int columns = ColumnsOf(level, south);
        const double width = 360.0 / columns;
        for (int column = 0; column < columns; ++column) {
            const double east = 180 - (column + 1) * width;
            cells.push_back(
                {NameOf(level.letter, north, east + width), {south + level.cellLat / 2, east + width / 2}, {}});
            reaches.push_back({north, east + width, south, east});
        }
    }
    // Rows of equal columns make rectangles; else the edges between the rows slant.
    if (level.fewerPoleward) reaches = Reaches(level, cells);
    for (std::size_t i = 0; i < cells.size(); ++i) cells[i].frame = FrameOf(level, reaches[i]);
    return cells;
}

} // namespace halvern::mapmaker
