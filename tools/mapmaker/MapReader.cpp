// SPDX-License-Identifier: GPL-3.0-or-later
#include "MapFile.h"

#include "Output.h"

#include <algorithm>
#include <charconv>
#include <sstream>
#include <stdexcept>

namespace halvern::mapmaker {

namespace {

/// Takes a map's rows and turns offsets into places.
class MapReader {
public:
    explicit MapReader(const std::string& bytes) : rows_(bytes) {}

    MapContent Read()
    {
        MapPlan& plan = content_.plan;
        top_ = Number(Row());
        left_ = Number(Row());
        scale_ = Number(Row());
        plan.unitsPerDegree = static_cast<int>(scale_);
        plan.frame.bottom = Number(Row());
        plan.frame.right = Number(Row());
        plan.widestStep = static_cast<int>(Number(Row()));
        plan.narrowestStep = static_cast<int>(Number(Row()));
        const std::string word = Row();
        if (scale_ < 1 || (word != "ASCII" && word != "LineFormat"))
            throw std::runtime_error("isn't a map of mapmaker's");
        plan.format = word == "ASCII" ? BodyFormat::Ascii : BodyFormat::LineFormat;
        if (plan.format == BodyFormat::Ascii)
            ReadAscii();
        else
            ReadLineFormat();
        FindFrame();
        return std::move(content_);
    }

private:
    std::string Row()
    {
        std::string row;
        if (!std::getline(rows_, row)) throw std::runtime_error("ends before its end mark");
        return row;
    }

    static double Number(const std::string& text)
    {
        double value = 0;
        const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
        if (error != std::errc() || stop != text.data() + text.size())
            throw std::runtime_error("has \"" + text + "\" where a number belongs");
        return value;
    }

    void Add(double across, double down)
    {
        if (content_.lines.empty()) throw std::runtime_error("has a point before the first line");
        content_.lines.back().vertices.push_back({top_ - down / scale_, left_ - across / scale_});
    }

    void ReadAscii()
    {
        for (std::string row = Row(); row != "0,-1"; row = Row()) {
            const std::size_t comma = row.find(',');
            if (comma == std::string::npos) throw std::runtime_error("has a row without a comma");
            if (!row.starts_with("0,0,")) {
                Add(Number(row.substr(0, comma)), Number(row.substr(comma + 1)));
                continue;
            }
            const std::size_t end = std::min(row.find(',', 4), row.size());
            const std::string name = end < row.size() ? row.substr(end + 1) : "";
            content_.lines.push_back({static_cast<int>(Number(row.substr(4, end - 4))), name, {}});
        }
    }

    void ReadLineFormat()
    {
        constexpr int CodeBase = 27;
        for (std::string row = Row(); row != "-1"; row = Row()) {
            content_.lines.push_back({static_cast<int>(Number(row)), "", {}});
            const std::string text = Row();
            const auto code = [&](std::size_t at) { return static_cast<unsigned char>(text[at]) - CodeBase; };
            for (std::size_t i = 0; i + 2 < text.size(); i += 3)
                Add(code(i) * 16 + code(i + 2) / 8, code(i + 1) * 8 + code(i + 2) % 8);
        }
    }

    /// The head has the origin, not the top and left edge: those are where the lines end.
    void FindFrame()
    {
        Box& frame = content_.plan.frame;
        frame.top = frame.bottom;
        frame.left = frame.right;
        for (const DrawnLine& line : content_.lines) {
            const Box bounds = BoundsOf(line.vertices);
            frame.top = std::max(frame.top, bounds.top);
            frame.left = std::max(frame.left, bounds.left);
        }
    }

    std::istringstream rows_;
    double top_ = 0;
    double left_ = 0;
    double scale_ = 1;
    MapContent content_;
};

} // namespace

MapContent ReadMap(const std::filesystem::path& file)
{
    try {
        return MapReader(ReadWhole(file)).Read();
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(file.string() + ": " + error.what());
    }
}

} // namespace halvern::mapmaker
