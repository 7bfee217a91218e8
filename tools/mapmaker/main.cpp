// SPDX-License-Identifier: GPL-3.0-or-later
#include "Commands.h"
#include "MapList.h"
#include "Output.h"
#include "WorldData.h"

#include <cpl_error.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <exception>
#include <functional>
#include <map>
#include <sstream>
#include <stdexcept>

namespace {

using namespace halvern::mapmaker;

constexpr const char* Help = R"(mapmaker: makes maps for Halvern from vector files.

  mapmaker lines --name NAME [options] FILE...
      A map from all vector files that GDAL reads (GeoJSON, shapefile, OpenStreetMap
      extract...): DATA/dosmaps/NAME.map, and with --steps its place in the map list.
        --name NAME       1 to 8 letters, digits, - or _; capitals become small
        --steps W-N       enter the map into DATA/maplist/maplist1.hvn for the range
                          steps W down to N, e.g. 16-1; the program takes the map
                          whose centre is nearest to that of the view
        --format F        ascii (any precision) or line (three bytes a point)
        --units N         ascii: units per degree, 10000 if not given

  mapmaker add --steps W-N [options] FILE...
      Puts the lines into those maps that the list has for these steps. What an
      earlier add put in is taken out.
        --append          keep what an earlier add put in
        --units N         units per degree, 10000 if not given

  mapmaker remove --name NAME | --steps W-N [--data DATA]
      Undoes: takes a map of your own away and out of the map list, or the lines of
      add out of the maps of these steps.

  mapmaker tiles --layer LAYER [options] FILE...
      Tiles of the United States' 15 regions: DATA/mapdata/S01_LAYER.GRF and so on.
        --layer LAYER     PB borders, RDI main roads, RDL local roads, WB waters
        --append          add to the tiles instead of replacing them

  mapmaker picture --name NAME [options] FILE...
      A calibrated picture: DATA/bitmap/NAME.gif and NAME.txt.
        --width PIXELS    1200 if not given

  mapmaker world --gshhg FOLDER --us-atlas FOLDER --provinces FILE [--data DATA]
      All the map data that Halvern ships, from the GSHHG netCDF files, the npm
      package us-atlas and the world_map.gpkg of the Debian package qgis-common.

Options of lines, add, tiles and picture:
  --data DATA       the folder that holds dosmaps, maplist...; "data" if not given
  --rules FILE      which features are drawn and how; one rule a row, the first that fits
                    decides:  layer  field=value  colour (0 to 15) or skip  [name field]
                    (in quotes what holds a blank: "type=Major Highway")
                      *      highway=motorway  14  ref
                      lines  waterway=*         9  name
                      *      *                  skip
  --colour N        without rules: the colour of all lines, 7 if not given
  --box N,W,S,E     the edges in degrees, west and south negative; if not given, as
                    large as the lines reach
  --tolerance DEG   leave out points that lie nearer than this to the line without them
)";

/// Words of the command line: options with their values, and files.
struct Arguments {
    std::map<std::string, std::string> options;
    std::vector<std::filesystem::path> files;

    std::string Take(const std::string& option, const std::string& otherwise)
    {
        const auto found = options.find(option);
        if (found == options.end()) return otherwise;
        std::string value = found->second;
        options.erase(found);
        return value;
    }

    std::string Need(const std::string& option)
    {
        std::string value = Take(option, "");
        if (value.empty()) throw std::runtime_error(option + " is missing; --help tells how");
        return value;
    }

    /// Throws for the first option that no command took.
    void CheckNoneLeft() const
    {
        if (!options.empty()) throw std::runtime_error(options.begin()->first + " isn't an option of this command");
    }
};

Arguments Split(int count, char** words)
{
    Arguments arguments;
    for (int i = 2; i < count; ++i) {
        const std::string word = words[i];
        const std::size_t equals = word.find('=');
        if (!word.starts_with("-")) {
            arguments.files.emplace_back(word);
        } else if (word == "--append") {
            arguments.options[word] = "yes";
        } else if (equals != std::string::npos) {
            arguments.options[word.substr(0, equals)] = word.substr(equals + 1);
        } else if (i + 1 < count) {
            arguments.options[word] = words[++i];
        } else {
            throw std::runtime_error(word + " needs a value");
        }
    }
    return arguments;
}

template <typename Value> Value Number(const std::string& option, const std::string& text)
{
    Value value{};
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stop != end || !std::isfinite(static_cast<double>(value)))
        throw std::runtime_error(option + ": \"" + text + "\" isn't a number");
    return value;
}

int Whole(Arguments& arguments, const std::string& option, int otherwise, int least, int most)
{
    const int value = Number<int>(option, arguments.Take(option, std::to_string(otherwise)));
    if (value < least || value > most)
        throw std::runtime_error(option + " takes " + std::to_string(least) + " to " + std::to_string(most));
    return value;
}

/// "N,W,S,E" with longitudes east positive, as map sources have them.
Box ParseBox(const std::string& text)
{
    if (text.empty()) return {};
    std::istringstream parts(text);
    std::vector<double> edges;
    for (std::string part; std::getline(parts, part, ',');) edges.push_back(Number<double>("--box", part));
    if (edges.size() != 4 || edges[0] <= edges[2] || edges[0] > 90 || edges[2] < -90 || edges[1] >= edges[3])
        throw std::runtime_error(
            "--box takes north,west,south,east in degrees, west and south negative; the east edge of\n"
            "a box across the date line lies beyond 180: --box -15,177,-20,182");
    return {edges[0], -edges[1], edges[2], -edges[3]};
}

void TakeCommon(Arguments& arguments, Task& task)
{
    task.inputs = arguments.files;
    task.data = arguments.Take("--data", "data");
    task.rules = arguments.Take("--rules", "");
    task.colour = Whole(arguments, "--colour", 7, 0, 15);
    task.frame = ParseBox(arguments.Take("--box", ""));
    task.tolerance = Number<double>("--tolerance", arguments.Take("--tolerance", "0"));
    if (task.tolerance < 0) throw std::runtime_error("--tolerance takes degrees, 0 or more");
}

/// "16-1" or just "16"; an empty text leaves both 0.
template <typename StepsTask> void TakeSteps(StepsTask& task, const std::string& steps)
{
    if (steps.empty()) return;
    const std::size_t dash = steps.find('-');
    task.widest = Number<int>("--steps", steps.substr(0, dash));
    task.narrowest = dash == std::string::npos ? task.widest : Number<int>("--steps", steps.substr(dash + 1));
    for (const int step : {task.widest, task.narrowest})
        if (std::find(ListSteps.begin(), ListSteps.end(), step) == ListSteps.end())
            throw std::runtime_error("--steps: " + std::to_string(step) + " isn't 2048, 1024, 512 ... 2 or 1");
    if (task.widest < task.narrowest) throw std::runtime_error("--steps takes the wider step first, e.g. 16-1");
}

void Lines(Arguments& arguments)
{
    LinesTask task;
    TakeCommon(arguments, task);
    task.name = arguments.Need("--name");
    const std::string format = arguments.Take("--format", "ascii");
    if (format != "ascii" && format != "line") throw std::runtime_error("--format takes ascii or line");
    task.format = format == "ascii" ? BodyFormat::Ascii : BodyFormat::LineFormat;
    task.unitsPerDegree = Whole(arguments, "--units", task.unitsPerDegree, 1, 1000000);
    TakeSteps(task, arguments.Take("--steps", ""));
    arguments.CheckNoneLeft();
    MakeLines(task);
}

void Add(Arguments& arguments)
{
    AddTask task;
    TakeCommon(arguments, task);
    task.append = arguments.Take("--append", "") == "yes";
    task.unitsPerDegree = Whole(arguments, "--units", task.unitsPerDegree, 1, 1000000);
    TakeSteps(task, arguments.Need("--steps"));
    arguments.CheckNoneLeft();
    AddToMaps(task);
}

void Remove(Arguments& arguments)
{
    AddTask task;
    task.data = arguments.Take("--data", "data");
    task.remove = true;
    const std::string name = arguments.Take("--name", "");
    if (name.empty()) TakeSteps(task, arguments.Need("--steps"));
    arguments.CheckNoneLeft();
    if (name.empty())
        AddToMaps(task);
    else
        RemoveMap(task, name);
}

void Tiles(Arguments& arguments)
{
    TilesTask task;
    TakeCommon(arguments, task);
    task.layer = arguments.Need("--layer");
    task.append = arguments.Take("--append", "") == "yes";
    arguments.CheckNoneLeft();
    MakeTiles(task);
}

void Pictures(Arguments& arguments)
{
    PictureTask task;
    TakeCommon(arguments, task);
    task.name = arguments.Need("--name");
    task.width = Whole(arguments, "--width", task.width, 16, 10000);
    arguments.CheckNoneLeft();
    MakePicture(task);
}

void World(Arguments& arguments)
{
    const WorldSources sources{arguments.Need("--gshhg"), arguments.Need("--us-atlas"), arguments.Need("--provinces")};
    const std::string data = arguments.Take("--data", "data");
    arguments.CheckNoneLeft();
    MakeWorld(sources, data);
}

} // namespace

int main(int count, char** words)
{
    const std::map<std::string, std::function<void(Arguments&)>> commands{
        {"lines", Lines}, {"add", Add}, {"remove", Remove}, {"tiles", Tiles}, {"picture", Pictures}, {"world", World}};
    CPLSetErrorHandler(CPLQuietErrorHandler); // what matters of GDAL's messages goes into ours
    LeaveNoHalfFiles();
    try {
        for (int i = 1; i < count; ++i)
            if (std::string(words[i]) == "--help" || std::string(words[i]) == "-h")
                return std::fputs(Help, stdout) < 0 || std::fflush(stdout) != 0;
        const auto command = commands.find(count > 1 ? words[1] : "");
        if (command == commands.end())
            throw std::runtime_error("the commands are lines, add, remove, tiles, picture, world; --help tells more");
        Arguments arguments = Split(count, words);
        command->second(arguments);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "mapmaker: %s\n", error.what());
        return 1;
    }
}
