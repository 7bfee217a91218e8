// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/DosMap.h"

#include "map/DosMapFile.h"
#include "platform/Text.h"
#include "view/Geometry.h"
#include "view/Plotting.h"

namespace halvern {
namespace {

constexpr const char* WhereMapsAre = " The archive dosmap.zip with all maps is where you got Halvern from.";
constexpr const char* ReportMap = " Please report the name of the map.";
constexpr double WorldMapRange = 4096;
constexpr std::size_t LongestWord = 60; ///< of a file that is quoted in a message; it may be all of the file

std::string MapFolder(const Halvern& halvern)
{
    return halvern.ProgramFolder + R"(\dosmaps\)";
}

void EndWith(Halvern& halvern, Icon icon, const std::string& text)
{
    halvern.Tell(icon, text);
    halvern.ConMdiFrm.EndApp.Click();
}

void CentreOnUsa(MapState& view)
{
    view.MapCenterLat = UsaCenterLat;
    view.MapCenterLon = UsaCenterLon;
    view.MapRange = UsaRange;
    KeepView(view);
}

std::string WorldMap(Halvern& halvern)
{
    const auto folder = MapFolder(halvern);
    const auto& files = halvern.Outside.files;
    if (files.Exists(folder + "world.map")) return folder + "WORLD.MAP";
    halvern.Tell(Icon::Information, std::string("The Dos map file world.map is not found. Halvern will now try to "
                                                "display the usa.map at 1024 map range.") +
                                        WhereMapsAre);
    if (!files.Exists(folder + "usa.map")) {
        EndWith(halvern, Icon::Stop,
                std::string("usa.map is not found. Halvern will now close when you click on the ok button.") +
                    WhereMapsAre);
        return {};
    }
    CentreOnUsa(halvern.Map);
    halvern.Map.MapSyncPending = true;
    MapSetGeometry(halvern);
    return folder + "USA.Map";
}

/// What the map's name field has room for: the file name, where it is of the short kind.
std::string ShortName(const std::string& path)
{
    const auto end = path.substr(path.size() - std::min<std::size_t>(12, path.size()));
    const auto mark = PositionOf(end, '\\');
    return end.substr(mark);
}

void TellDamaged(Halvern& halvern)
{
    halvern.Tell(Icon::Stop, "A Dos map file error has occured. " + halvern.ConMdiFrm.dMapTxt.Text() +
                                 " Has an error." + ReportMap);
}

void ShowUsaInstead(Halvern& halvern, DosMapTexts texts)
{
    CentreOnUsa(halvern.Map);
    halvern.Map.MapSyncPending = false; // the selector keeps the step that the operator asked for
    MapSetGeometry(halvern);
    const auto result = DrawDosMap(halvern, halvern.ProgramFolder + R"(\DOSMAPS\USA.MAP)");
    if (texts == DosMapTexts::FirstActivation) return;
    if (result == "ERROR") return TellDamaged(halvern);
    if (!result.empty()) return;
    EndWith(halvern, Icon::Stop,
            "Dos Map usa.map not found. You may have deleted it from the " + halvern.ProgramFolder +
                R"(\dosmaps directory. Halvern will now close when you click on the ok butto.)" + WhereMapsAre);
}

void TellNoMapInList(Halvern& halvern, DosMapTexts texts)
{
    const char* const advice = texts == DosMapTexts::Redraw ? ". You may have to edit maplist1.hvn file to make"
                                                            : " If may have to edit maplist1.hvn to make";
    halvern.Tell(Icon::Information, "For your map center and map range no Dos Map was found in the " +
                                        halvern.ProgramFolder + R"(\maplist1.hvn file)" + advice +
                                        " the map you are trying to display work. Halvern will now draw the usa.map "
                                        "at 1024 map range.");
}

/// @return whether the USA shall be drawn instead
bool TellFailure(Halvern& halvern, const std::string& result, DosMapTexts texts)
{
    if (result.empty()) {
        halvern.Tell(Icon::Information,
                     "Dos Map file not found. You may have deleted it from the " + halvern.ProgramFolder +
                         R"(\dosmaps directory. Halvern will now draw the usa.map at 1024 map range.)");
        return true;
    }
    if (result != "ERROR" || texts == DosMapTexts::FirstActivation) return false;
    TellDamaged(halvern);
    return true;
}

} // namespace

std::string ChooseDosMap(Halvern& halvern)
{
    if (halvern.Map.MapRange >= WorldMapRange) return WorldMap(halvern);
    const auto list = halvern.Outside.files.Read(halvern.ProgramFolder + R"(\maplist\maplist1.hvn)");
    if (!list) {
        EndWith(halvern, Icon::Information,
                std::string("The Dos Map Maplist file maplist1.hvn is not found. Halvern will now close when you "
                            "click on the ok button.") +
                    WhereMapsAre);
        return {};
    }
    const auto name = NearestMap(*list, halvern.ConMdiFrm.ScaleCombo.Selected() - 1, halvern.Map.MapCenterLat,
                                 halvern.Map.MapCenterLon);
    return name.empty() ? std::string{} : MapFolder(halvern) + name + ".map";
}

std::string DrawDosMap(Halvern& halvern, const std::string& path)
{
    const auto& files = halvern.Outside.files;
    const auto bytes = files.Read(path);
    if (!bytes) return {};
    halvern.ConMdiFrm.dMapTxt.SetText(ShortName(path));
    std::string format;
    const auto end = [&] {
        BothSurfaces surfaces(halvern.MapFrm, [&files, path](MapLines& lines) {
            std::string word;
            ReadMapLines(files.Read(path).value_or(""), lines, word);
        });
        return ReadMapLines(*bytes, surfaces, format);
    }();
    if (end == MapFileEnd::UnknownFormat) {
        halvern.Tell(Icon::Information, "Halvern will only work with ASCII and Line Format APRSdos maps. The type of "
                                        "this map is " +
                                            format.substr(0, LongestWord) + " Which is not supported.");
        return {};
    }
    if (end == MapFileEnd::Damaged) return "ERROR";
    FinishLineMap(halvern);
    return "AOK";
}

void ShowDosMap(Halvern& halvern, DosMapTexts texts)
{
    const auto path = ChooseDosMap(halvern);
    if (halvern.Engine.Ended) return;
    if (path.empty()) {
        TellNoMapInList(halvern, texts);
        return ShowUsaInstead(halvern, texts);
    }
    if (TellFailure(halvern, DrawDosMap(halvern, path), texts)) ShowUsaInstead(halvern, texts);
}

} // namespace halvern
