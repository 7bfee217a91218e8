// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Files.h"

/// The names of places: which ones a view shows, and which one a position is near to. They are display only, nothing of
/// the station depends on them, so a window program owns the one `PlaceNames` and lends it to whoever shows names.
///
///     PlaceNames places(halvern.Outside.files, halvern.ProgramFolder + R"(\places\places.dat)");
///     for (const auto& place : places.InView({map.MapTopLat, map.MapLeftLon, map.MapBottomLat, map.MapRightLon},
///                                            map.MapRange))
///         ...; // the most important first: a name that finds no room gives way to those before it
///     card += WhereIs(places, record.Lat, record.Lon); // "8 km NE of Riverhead", or nothing
///
/// Angles are degrees, north positive and west positive. `docs/formats.md` describes the file.
namespace halvern {

/// A place to be named on the map.
struct NamedPlace {
    std::string_view name;    ///< UTF-8; lives as long as the bytes that it was read from
    double lat = 0, lon = 0;  ///< lon may lie a turn outside of 180 to -180, where the view does
    std::uint32_t people = 0; ///< the sections of a town are told with 9,999 at most
};

/// The degrees at the edges of a view.
struct PlaceView {
    double top = 0, left = 0, bottom = 0, right = 0; ///< left is the larger longitude
};

/// The nearest place, and the way from it.
struct NearPlace {
    NamedPlace place;
    double kilometres = 0;
    double bearing = 0; ///< from the place to the position, degrees from north over east
};

inline constexpr std::size_t MostPlaces = 40; ///< that a view names

/// Whether the bytes are a list of places from end to end. The two below find nothing in what is not, and never read
/// past its end.
bool SoundPlaces(std::string_view bytes);

/// The places that a view of this range names, those with the most people first. Each range has its own choice, spread
/// over the ground, that includes the choice of every wider one: moving the view never makes a name come or go inside
/// it, as long as no more than `most` are in it.
///
/// @param range  half the height of the view, nautical miles
std::vector<NamedPlace> PlacesInView(std::string_view bytes, const PlaceView& view, double range,
                                     std::size_t most = MostPlaces);

/// The place that lies nearest over the ground, however small it is. Nothing where there is no place at all.
std::optional<NearPlace> NearestPlace(std::string_view bytes, double lat, double lon);

/// The file of places, read when it is first asked for.
class PlaceNames {
public:
    /// @param path  as `Files` take it
    PlaceNames(const Files& files, std::string path) : files(files), path(std::move(path)) {}

    std::vector<NamedPlace> InView(const PlaceView& view, double range) { return PlacesInView(Bytes(), view, range); }
    std::optional<NearPlace> Nearest(double lat, double lon) { return NearestPlace(Bytes(), lat, lon); }

    /// What is wrong with the file, for a notice, or an empty text. A damaged file names nothing.
    std::string Trouble();

private:
    const std::string& Bytes();

    const Files& files;
    const std::string path;
    std::optional<std::string> bytes;
    std::string trouble;
};

/// "8 km NE of Riverhead", "in Riverhead" within a kilometre, or nothing farther than 1,000 km from any place.
std::string WhereIs(PlaceNames& places, double lat, double lon);

} // namespace halvern
