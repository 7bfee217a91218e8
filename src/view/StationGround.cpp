// SPDX-License-Identifier: GPL-3.0-or-later
// Where stations are on the ground. It stands apart from Ground.cpp, which the map maker has too, without any station.
#include "protocol/PositionText.h"
#include "state/Rows.h"
#include "view/Ground.h"

namespace halvern {

GroundPoint PlaceOfRow(std::string_view row)
{
    return {LatTextToDegrees(positionRow::Latitude(row)), LonTextToDegrees(positionRow::Longitude(row))};
}

std::optional<GroundPoint> OwnPlace(const Halvern& halvern)
{
    const auto& stations = halvern.PositionFrm.PosLst;
    const int own = stations.Find(CallField(halvern.Engine.OwnCall));
    if (own == NotFound) return {};
    return PlaceOfRow(stations.Row(own));
}

} // namespace halvern
