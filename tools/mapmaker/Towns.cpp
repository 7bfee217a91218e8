// SPDX-License-Identifier: GPL-3.0-or-later
#include "Towns.h"

#include "Output.h"
#include "map/Places.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <stdexcept>

namespace halvern::mapmaker {

Towns::Towns(const std::filesystem::path& places) : near_(std::size_t{180 * SquaresPerDegree} * 360 * SquaresPerDegree)
{
    constexpr std::uint32_t Town = 100000, City = 1000000;
    constexpr double AroundTown = 16 / 111.2, AroundCity = 36 / 111.2; // degrees of latitude
    constexpr std::size_t All = 1000000;
    const std::string bytes = ReadWhole(places);
    if (!SoundPlaces(bytes)) throw std::runtime_error(places.string() + " is no file of places");
    for (const NamedPlace& place : PlacesInView(bytes, {90, 180, -90, -180}, 0, All)) {
        if (place.people < Town) break;
        const double around = place.people < City ? AroundTown : AroundCity;
        const double side = around / std::cos(place.lat * std::numbers::pi / 180);
        for (double lat = place.lat - around; lat <= place.lat + around; lat += 1.0 / SquaresPerDegree)
            for (double lon = place.lon - side; lon <= place.lon + side; lon += 1.0 / SquaresPerDegree)
                near_[SquareOf({lat, lon})] = true;
    }
}

std::size_t Towns::SquareOf(const Vertex& vertex)
{
    constexpr int Rows = 180 * SquaresPerDegree, Columns = 360 * SquaresPerDegree;
    const int row = std::clamp(static_cast<int>((90 - vertex.lat) * SquaresPerDegree), 0, Rows - 1);
    const int column = static_cast<int>(std::floor((180 - vertex.lon) * SquaresPerDegree));
    return static_cast<std::size_t>(row) * Columns + static_cast<std::size_t>((column % Columns + Columns) % Columns);
}

} // namespace halvern::mapmaker
