// SPDX-License-Identifier: GPL-3.0-or-later
// The bytes of a file of places: as they are, and as the records of two cells behind a sound table. What a view names
// lies in it, and its name in the file; a sound file with a place in it has a nearest one.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "map/Places.h"

using namespace halvern;

namespace {

/// The cell `split` has the first `skip` bytes of the records, the last cell the rest, every other one none.
std::string WithTable(std::string_view records, std::size_t split, std::size_t skip)
{
    std::string file = "HalvernPlaces 1\n";
    const std::size_t start = 16 + 4 * 16200;
    for (std::size_t cell = 0; cell < 16200; ++cell) {
        const auto at = start + (cell > split ? skip : 0);
        for (int shift = 0; shift < 32; shift += 8) file += static_cast<char>(at >> shift & 255);
    }
    return file.append(records);
}

void Look(std::string_view file)
{
    const bool sound = SoundPlaces(file);
    for (const auto& view : {PlaceView{41.5, 75, 39, 71}, PlaceView{90, 185, 86, 175}})
        for (const auto& place : PlacesInView(file, view, 8))
            if (place.name.data() < file.data() || place.name.data() + place.name.size() > file.data() + file.size() ||
                place.lat > view.top || place.lat < view.bottom || place.lon > view.left || place.lon < view.right)
                std::abort();
    const auto near = NearestPlace(file, 40.5, 73);
    if ((near && !(near->kilometres < 20100)) || (sound && !near && file.size() > 16 + 4 * 16200)) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    Look(input);
    if (size >= 3) Look(WithTable(input.substr(3), 64 * data[0] + data[1], data[2]));
    return 0;
}
