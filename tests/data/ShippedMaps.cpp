// SPDX-License-Identifier: GPL-3.0-or-later
#include "ShippedMaps.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace shipped {

namespace {

/// Takes a file's bytes apart, item by item.
class Items {
public:
    explicit Items(const std::string& bytes) : bytes_(bytes) {}

    std::string Line()
    {
        const std::size_t end = bytes_.find('\n', at_);
        if (end == std::string::npos) throw std::runtime_error("the file ends before its end mark");
        std::string line = bytes_.substr(at_, end - at_);
        at_ = end + 1;
        return line;
    }

    bool AtEnd() const { return at_ == bytes_.size(); }

private:
    const std::string& bytes_;
    std::size_t at_ = 0;
};

double Number(const std::string& text)
{
    std::size_t used = 0;
    const double value = std::stod(text, &used);
    if (used != text.size()) throw std::runtime_error("\"" + text + "\" isn't a number");
    return value;
}

int Colour(const std::string& text)
{
    const int colour = static_cast<int>(Number(text));
    if (colour < 0 || colour > 15) throw std::runtime_error("\"" + text + "\" isn't a colour");
    return colour;
}

struct Origin {
    double top, left, scale;

    Place At(double across, double down) const
    {
        if (across < 1 || down < 1) throw std::runtime_error("an offset below 1");
        return {top - down / scale, left - across / scale};
    }
};

void ReadAscii(Items& items, const Origin& origin, Map& map)
{
    for (;;) {
        const std::string line = items.Line();
        if (line == "0,-1") return;
        const std::size_t comma = line.find(',');
        if (comma == std::string::npos) throw std::runtime_error("a line without a comma");
        if (line.starts_with("0,0,")) {
            const std::size_t end = line.find(',', 4);
            map.lines.push_back({Colour(line.substr(4, end - 4)), {}});
        } else {
            map.lines.back().places.push_back(origin.At(Number(line.substr(0, comma)), Number(line.substr(comma + 1))));
        }
    }
}

void ReadPacked(Items& items, const Origin& origin, Map& map)
{
    for (;;) {
        const std::string colour = items.Line();
        if (colour == "-1") return;
        map.lines.push_back({Colour(colour), {}});
        const std::string text = items.Line();
        if (text.empty() || text.size() % 3 != 0) throw std::runtime_error("a polyline cut short");
        for (std::size_t i = 0; i < text.size(); i += 3) {
            std::array<int, 3> codes{};
            for (std::size_t k = 0; k < 3; ++k) {
                codes[k] = static_cast<unsigned char>(text[i + k]);
                if (codes[k] < 32) throw std::runtime_error("a control character among the points");
                codes[k] -= 27;
            }
            map.lines.back().places.push_back(origin.At(codes[0] * 16 + codes[2] / 8, codes[1] * 8 + codes[2] % 8));
        }
    }
}

} // namespace

std::string Bytes(const std::string& file)
{
    std::ifstream in(file, std::ios::binary);
    if (!in) throw std::runtime_error(file + " is missing");
    return {std::istreambuf_iterator<char>(in), {}};
}

Map ReadMap(const std::string& file)
{
    const std::string bytes = Bytes(file);
    Items items(bytes);
    Map map{};
    Origin origin{};
    origin.top = Number(items.Line());
    origin.left = Number(items.Line());
    origin.scale = Number(items.Line());
    map.bottom = Number(items.Line());
    map.right = Number(items.Line());
    map.widestStep = static_cast<int>(Number(items.Line()));
    map.narrowestStep = static_cast<int>(Number(items.Line()));
    const std::string format = items.Line();
    map.packed = format == "LineFormat";
    if (!map.packed && format != "ASCII") throw std::runtime_error("the format word is " + format);
    if (map.packed)
        ReadPacked(items, origin, map);
    else
        ReadAscii(items, origin, map);
    if (!items.AtEnd()) throw std::runtime_error("something stands behind the end mark");
    map.top = -1e9;
    map.left = -1e9;
    double bottom = 1e9;
    double right = 1e9;
    for (const Polyline& line : map.lines) {
        map.points += line.places.size();
        for (const Place& place : line.places) {
            map.top = std::max(map.top, place.lat);
            map.left = std::max(map.left, place.lon);
            bottom = std::min(bottom, place.lat);
            right = std::min(right, place.lon);
        }
    }
    // The frame in the head is what the lines reach, but for the rounding of their offsets.
    if (std::abs(bottom - map.bottom) > 1.5 / origin.scale || std::abs(right - map.right) > 1.5 / origin.scale)
        throw std::runtime_error("the lines don't reach the frame's edges");
    return map;
}

List ReadList(const std::string& file)
{
    constexpr std::size_t Length = 23;
    const std::string bytes = Bytes(file);
    if (bytes.size() % Length != 0) throw std::runtime_error("the list's length is no multiple of 23");
    const auto record = [&](std::size_t number) { return bytes.substr((number - 1) * Length, Length); };
    List list;
    std::size_t next = 13;
    for (std::size_t row = 1; row <= 12; ++row) {
        const auto start = std::stoul(record(row).substr(0, 13));
        const auto count = std::stoul(record(row).substr(13));
        if (start != next || count == 0) throw std::runtime_error("the head of row " + std::to_string(row));
        for (; next < start + count; ++next) {
            const std::string text = record(next);
            const bool northSouth = text.size() == Length && (text[14] == 'N' || text[14] == 'S');
            if (!northSouth || (text[22] != 'E' && text[22] != 'W'))
                throw std::runtime_error("record " + std::to_string(next) + ": " + text);
            const double lat = Number(text.substr(8, 2) + "." + text.substr(10, 4));
            const double lon = Number(text.substr(15, 3) + "." + text.substr(18, 4));
            list[4096 >> row].push_back({text.substr(0, text.find_last_not_of(' ', 7) + 1),
                                         {text[14] == 'S' ? -lat : lat, text[22] == 'E' ? -lon : lon}});
        }
    }
    if ((next - 1) * Length != bytes.size()) throw std::runtime_error("records that no row of the head counts");
    return list;
}

const Entry& Nearest(const std::vector<Entry>& entries, const Place& place)
{
    const auto distance = [&](const Entry& entry) {
        const float lat = std::abs(static_cast<float>(place.lat) - static_cast<float>(entry.centre.lat));
        const float lon = std::abs(static_cast<float>(place.lon) - static_cast<float>(entry.centre.lon));
        return std::sqrt(lat * lat + lon * lon);
    };
    return *std::min_element(entries.begin(), entries.end(),
                             [&](const Entry& one, const Entry& other) { return distance(one) < distance(other); });
}

Place HalfView(double range, double lat)
{
    return {range / 60, range * 4 / (std::cos(lat * 3.1416 / 180) * 3 * 60)};
}

bool ShowsSomething(const Map& map, const Place& centre, const Place& half)
{
    for (const Polyline& line : map.lines)
        for (std::size_t i = 1; i < line.places.size(); ++i) {
            const Place from{(line.places[i - 1].lat - centre.lat) / half.lat,
                             (line.places[i - 1].lon - centre.lon) / half.lon};
            const Place to{(line.places[i].lat - centre.lat) / half.lat, (line.places[i].lon - centre.lon) / half.lon};
            if (std::min(from.lat, to.lat) > 1 || std::max(from.lat, to.lat) < -1 || std::min(from.lon, to.lon) > 1 ||
                std::max(from.lon, to.lon) < -1)
                continue;
            // The view is now the square from -1 to 1: its corners lie on both sides of the stretch, or on one.
            const auto side = [&](double lat, double lon) {
                return (to.lon - from.lon) * (lat - from.lat) - (to.lat - from.lat) * (lon - from.lon) > 0;
            };
            const int left = side(1, 1) + side(1, -1) + side(-1, 1) + side(-1, -1);
            if (left != 0 && left != 4) return true;
        }
    return false;
}

} // namespace shipped
