// SPDX-License-Identifier: GPL-3.0-or-later
#include "MapFile.h"

#include "Output.h"
#include "map/DosMapFile.h"

#include <algorithm>
#include <charconv>
#include <sstream>
#include <stdexcept>

namespace halvern::mapmaker {

namespace {

double Number(const std::string& text)
{
    double value = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || stop != text.data() + text.size())
        throw std::runtime_error("has \"" + text + "\" where a number belongs");
    return value;
}

/// Takes the station's own reading of a map's lines. The station keeps the origin in single precision, which is put
/// right here, so that what is read and written again stays the same.
class LineTaker final : public MapLines {
public:
    LineTaker(double left, double top)
        : acrossOrigin_(left - static_cast<float>(left)), downOrigin_(top - static_cast<float>(top))
    {
    }
    void Start(double x, double y, int colour) override
    {
        lines.push_back({colour, "", {}});
        LineTo(x, y, colour);
    }
    void LineTo(double x, double y, int) override
    {
        lines.back().vertices.push_back({y + downOrigin_, x + acrossOrigin_});
    }

    std::vector<DrawnLine> lines;

private:
    const double acrossOrigin_, downOrigin_;
};

/// The station draws no names: they stand behind the colours of an Ascii body. A line without a point is none.
void TakeNames(std::istream& body, std::vector<DrawnLine>& lines)
{
    std::size_t next = 0;
    std::string name;
    bool begun = false;
    for (std::string row; std::getline(body, row) && row != "0,-1" && next < lines.size();) {
        if (row.starts_with("0,0,")) {
            const std::size_t comma = row.find(',', 4);
            name = comma == std::string::npos ? "" : row.substr(comma + 1);
            begun = true;
        } else if (begun) {
            lines[next++].name = name;
            begun = false;
        }
    }
}

/// The head has the origin, not the top and left edge: those are where the lines end.
void FindFrame(MapContent& content)
{
    Box& frame = content.plan.frame;
    frame.top = frame.bottom;
    frame.left = frame.right;
    for (const DrawnLine& line : content.lines) {
        const Box bounds = BoundsOf(line.vertices);
        frame.top = std::max(frame.top, bounds.top);
        frame.left = std::max(frame.left, bounds.left);
    }
}

MapContent Read(const std::string& bytes)
{
    std::istringstream rows(bytes);
    std::string head[8];
    for (std::string& row : head)
        if (!std::getline(rows, row)) throw std::runtime_error("ends before its end mark");
    const std::string& word = head[7];
    if (Number(head[2]) < 1 || (word != "ASCII" && word != "LineFormat"))
        throw std::runtime_error("isn't a map of mapmaker's");
    LineTaker taker(Number(head[1]), Number(head[0]));
    std::string format;
    if (ReadMapLines(bytes, taker, format) != MapFileEnd::Marker) throw std::runtime_error("is damaged");
    MapContent content;
    content.plan = {word == "ASCII" ? BodyFormat::Ascii : BodyFormat::LineFormat,
                    {0, 0, Number(head[3]), Number(head[4])},
                    static_cast<int>(Number(head[2])),
                    static_cast<int>(Number(head[5])),
                    static_cast<int>(Number(head[6]))};
    content.lines = std::move(taker.lines);
    if (content.plan.format == BodyFormat::Ascii) TakeNames(rows, content.lines);
    FindFrame(content);
    return content;
}

} // namespace

MapContent ReadMap(const std::filesystem::path& file)
{
    try {
        return Read(ReadWhole(file));
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(file.string() + ": " + error.what());
    }
}

} // namespace halvern::mapmaker
