// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Geometry.h"

#include <filesystem>

namespace halvern::mapmaker {

/// Where many people live: within 16 km of a town of 100,000, 36 km of one of a million.
class Towns {
public:
    /// @param places  the file of places that ships with the maps
    /// Throws std::runtime_error when it can't be read.
    explicit Towns(const std::filesystem::path& places);

    bool Near(const Vertex& vertex) const { return near_[SquareOf(vertex)]; }

private:
    static constexpr int SquaresPerDegree = 20;
    static std::size_t SquareOf(const Vertex& vertex);

    std::vector<bool> near_;
};

} // namespace halvern::mapmaker
