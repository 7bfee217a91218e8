// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Feature.h"
#include "WorldData.h"

namespace halvern::mapmaker {

/// All lines of all sources, simplified to `tolerance` degrees. In the United States the first-level borders and the
/// counties are those of the Census Bureau, elsewhere the borders are GSHHG's. Throws std::runtime_error when a source
/// can't be read.
std::vector<Feature> LoadSources(const WorldSources& sources, double tolerance);

} // namespace halvern::mapmaker
