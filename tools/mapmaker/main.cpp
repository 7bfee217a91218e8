// SPDX-License-Identifier: GPL-3.0-or-later
#include "Commands.h"
#include "MapList.h"
#include "Output.h"
#include "WorldData.h"

#include <CLI/CLI.hpp>
#include <cpl_error.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <stdexcept>

namespace {

using namespace halvern::mapmaker;

constexpr const char* RulesHelp =
    R"(A rule file says which features are drawn and how; one rule a row, the first that fits decides:
  layer  field=value        colour (0 to 15) or skip  [name field]
  *      highway=motorway   14  ref
  lines  waterway=*          9  name
  *      *                  skip
In quotes what holds a blank: "type=Major Highway".)";

/// "N,W,S,E" with longitudes east positive, as map sources have them.
Box BoxOf(const std::string& text)
{
    std::vector<double> edges;
    for (const auto& part : CLI::detail::split(text, ','))
        if (double edge = 0; CLI::detail::lexical_cast(part, edge)) edges.push_back(edge);
    if (edges.size() != 4 || !(edges[0] > edges[2] && edges[0] <= 90 && edges[2] >= -90 && edges[1] < edges[3]))
        throw CLI::ValidationError("--box",
                                   "takes north,west,south,east in degrees, west and south negative; the east edge of\n"
                                   "a box across the date line lies beyond 180: --box -15,177,-20,182");
    return {edges[0], -edges[1], edges[2], -edges[3]};
}

/// "16-1" or just "16": the range steps from the widest to the narrowest.
template <typename StepsTask> void TakeSteps(StepsTask& task, const std::string& steps)
{
    const auto dash = steps.find('-');
    const auto step = [](const std::string& text) {
        int value = 0;
        if (!CLI::detail::lexical_cast(text, value) || std::ranges::find(ListSteps, value) == ListSteps.end())
            throw CLI::ValidationError("--steps", text + " isn't 2048, 1024, 512 ... 2 or 1");
        return value;
    };
    task.widest = step(steps.substr(0, dash));
    task.narrowest = dash == std::string::npos ? task.widest : step(steps.substr(dash + 1));
    if (task.widest < task.narrowest) throw CLI::ValidationError("--steps", "takes the wider step first, e.g. 16-1");
}

CLI::App& AddCommand(CLI::App& app, const char* name, const char* words)
{
    auto& command = *app.add_subcommand(name, words);
    command.get_formatter()->column_width(24);
    return command;
}

template <typename StepsTask> CLI::Option* AddSteps(CLI::App& command, StepsTask& task, const char* words)
{
    return command
        .add_option_function<std::string>(
            "--steps", [&](const std::string& steps) { TakeSteps(task, steps); }, words)
        ->type_name("W-N");
}

void AddData(CLI::App& command, std::filesystem::path& data)
{
    data = "data";
    command.add_option("--data", data, "the folder that holds dosmaps, maplist... [data]")->type_name("DATA");
}

void AddUnits(CLI::App& command, int& units)
{
    command.add_option("--units", units, "of the format ascii: units per degree")
        ->check(CLI::Range(1, 1000000))
        ->capture_default_str();
}

/// What every command has that reads vector files.
void AddCommon(CLI::App& command, Task& task)
{
    command.add_option("FILE", task.inputs, "vector files that GDAL reads");
    AddData(command, task.data);
    command.add_option("--rules", task.rules, "which features are drawn and how: see below")->type_name("FILE");
    command.add_option("--colour", task.colour, "without rules: the colour of all lines")
        ->check(CLI::Range(0, 15))
        ->capture_default_str();
    command
        .add_option_function<std::string>(
            "--box", [&](const std::string& text) { task.frame = BoxOf(text); },
            "the edges in degrees, west and south negative; if not given, as large as the lines reach")
        ->type_name("N,W,S,E");
    command
        .add_option("--tolerance", task.tolerance,
                    "leave out points that lie nearer than so many degrees to the line without them")
        ->check(CLI::Range(0.0, 90.0))
        ->type_name("DEG");
    command.footer(RulesHelp);
}

/// The commands and what they were given.
struct CommandLine {
    CommandLine()
    {
        app.require_subcommand(1);
        app.set_version_flag("--version", "mapmaker " HALVERN_VERSION);
        app.set_help_all_flag("--help-all", "tells of all commands");
        auto& lines = AddCommand(app, "lines", "Make a map from vector files: DATA/dosmaps/NAME.map");
        AddCommon(lines, map);
        lines.add_option("--name", map.name, "1 to 8 letters, digits, - or _; capitals become small")->required();
        lines
            .add_option_function<std::string>(
                "--format",
                [this](const std::string& word) {
                    map.format = word == "line" ? BodyFormat::LineFormat : BodyFormat::Ascii;
                },
                "ascii (any precision) or line (three bytes a point)")
            ->check(CLI::IsMember({"ascii", "line"}));
        AddUnits(lines, map.unitsPerDegree);
        AddSteps(lines, map, "enter the map into the list for the range steps W down to N, e.g. 16-1");
        lines.callback([this] { MakeLines(map); });

        auto& add =
            AddCommand(app, "add", "Put the lines into the maps of these range steps, in place of earlier ones");
        AddCommon(add, added);
        add.add_flag("--append", added.append, "keep what an earlier add put in");
        AddUnits(add, added.unitsPerDegree);
        AddSteps(add, added, "the range steps W down to N, e.g. 16-1")->required();
        add.callback([this] { AddToMaps(added); });

        auto& remove = AddCommand(app, "remove", "Take a map of your own away, or what add put into these range steps");
        AddData(remove, removed.data);
        auto& which = *remove.add_option_group("which");
        which.add_option("--name", name, "the map of your own");
        AddSteps(which, removed, "the range steps W down to N, e.g. 16-1");
        which.require_option(1);
        removed.remove = true;
        remove.callback([this] { name.empty() ? AddToMaps(removed) : RemoveMap(removed, name); });

        auto& tile =
            AddCommand(app, "tiles", "Make tiles of the United States' 15 regions: DATA/mapdata/S01_LAYER.GRF...");
        AddCommon(tile, tiles);
        tile.add_option("--layer", tiles.layer, "PB borders, RDI main roads, RDL local roads, WB waters")->required();
        tile.add_flag("--append", tiles.append, "add to the tiles instead of replacing them");
        tile.callback([this] { MakeTiles(tiles); });

        auto& draw = AddCommand(app, "picture", "Make a calibrated picture: DATA/bitmap/NAME.gif and NAME.txt");
        AddCommon(draw, picture);
        draw.add_option("--name", picture.name, "of both files")->required();
        draw.add_option("--width", picture.width, "in pixels")->check(CLI::Range(16, 10000))->capture_default_str();
        draw.callback([this] { MakePicture(picture); });

        auto& all = AddCommand(app, "world", "Make all the map data that Halvern ships");
        AddData(all, data);
        all.add_option("--gshhg", sources.gshhg, "the folder of the GSHHG netCDF files")->required();
        all.add_option("--us-atlas", sources.usAtlas, "the folder of the npm package us-atlas")->required();
        all.add_option("--provinces", sources.provinces, "world_map.gpkg of the package qgis-common")->required();
        all.callback([this] { MakeWorld(sources, data); });
    }

    CLI::App app{"mapmaker: makes maps for Halvern from vector files.", "mapmaker"};
    LinesTask map;
    AddTask added, removed;
    TilesTask tiles;
    PictureTask picture;
    WorldSources sources;
    std::filesystem::path data;
    std::string name;
};

} // namespace

int main(int count, char** words)
{
    CPLSetErrorHandler(CPLQuietErrorHandler); // what matters of GDAL's messages goes into ours
    LeaveNoHalfFiles();
    CommandLine line;
    try {
        line.app.parse(count, words);
    } catch (const CLI::Success& help) {
        line.app.exit(help);
        return std::fflush(stdout) != 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "mapmaker: %s\n", error.what());
        return 1;
    }
    return 0;
}
