// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/DecodePosition.h"

#include "engine/ResetStores.h"
#include "protocol/PositionText.h"
#include "protocol/UtcTime.h"
#include "state/Rows.h"
#include "view/Geometry.h"
#include "view/Phg.h"
#include "view/Plotting.h"
#include "view/SymbolFile.h"

namespace halvern {
namespace {

constexpr const char* NoSymbol = "NG";
constexpr const char* Placeholder = "Symbol No Good";

/// A report in hand: where its columns are, and what has been found out of it so far.
struct Report {
    std::string& call;
    std::string& info;
    bool stamped;
    std::string latitudeText{}, longitudeText{}; ///< as received, blanks and all
    float latitude = 0, longitude = 0;
    bool newSymbol = false; ///< the station is new, or its symbol differs from the one in its row
    std::string symFile{};  ///< of a new symbol

    std::size_t Shift() const { return stamped ? 7 : 0; }
    ColumnRange Latitude() const { return {2 + Shift(), 8}; }
    ColumnRange Longitude() const { return {11 + Shift(), 9}; }
    char Table() const { return ColumnAt(info, 10 + Shift()); }
    std::size_t CodeColumn() const { return 20 + Shift(); }
    char Code() const { return ColumnAt(info, CodeColumn()); }
    bool IsObject() const { return ColumnAt(info, 1) == ';'; }
};

/// The filter for one kind of symbol. All overlays of the digipeater symbol pass with it.
bool PassesSymbolFilter(const Halvern& halvern, const Report& report)
{
    const auto& engine = halvern.Engine;
    if (!engine.JustSymbolsOn || report.IsObject() || report.call == CallField(engine.OwnCall)) return true;
    const char table = report.Table();
    const char code = report.Code();
    for (std::size_t i = 1; i <= engine.JustTable.size(); ++i)
        if (ColumnAt(engine.JustTable, i) == table && ColumnAt(engine.JustCode, i) == code) return true;
    return engine.JustTable == "/" && engine.JustCode == "#" && code == '#';
}

/// Reads one coordinate and writes "0" over its blanks. @return false where it is no coordinate.
bool ReadCoordinate(std::string& info, const ColumnRange& columns, double (*degreesOf)(std::string_view),
                    std::string& text, float& degrees)
{
    text = columns(info);
    degrees = static_cast<float>(degreesOf(text));
    if (degrees == 0) return false;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] == ' ') info[columns.first - 1 + i] = '0';
    return true;
}

std::string SymbolOf(const Halvern& halvern, const Report& report)
{
    return SymbolFileName(halvern.ProgramFolder, static_cast<unsigned char>(report.Table()),
                          static_cast<unsigned char>(report.Code()));
}

/// The row for a report, with the time of now where the report has no stamp.
std::string RowOf(const Halvern& halvern, const Report& report, char state)
{
    std::string row;
    row.reserve(positionRow::Latitude.first + report.info.size());
    row.append(report.call) += state;
    if (report.stamped) return row.append(report.info);
    row += report.info[0];
    return row.append(DayHourMinute(halvern.Engine.LastUtc)).append("z").append(report.info, 1);
}

void AddStation(Halvern& halvern, const Report& report)
{
    auto& store = halvern.PositionFrm.PosLst;
    const int index = store.Count();
    store.Add(Placeholder); // taken out again by ProcessPacket if the symbol fails
    NewSymbol(halvern, index, report.info, report.symFile, report.call, report.latitude, report.longitude);
}

/// A station that is new, or that comes back after it was killed or deleted.
void FileNewStation(Halvern& halvern, const Report& report, int returning)
{
    auto& store = halvern.PositionFrm.PosLst;
    const int index = returning == NotFound ? store.Count() : returning;
    if (returning == NotFound)
        AddStation(halvern, report);
    else
        PlaceSymbol(halvern, index, report.latitude, report.longitude);
    if (!halvern.ConMdiFrm.Psk63Menu.Checked()) halvern.Outside.dialogs.Bell();
    store.Replace(index, RowOf(halvern, report, mark::None));
    if (halvern.ConMdiFrm.PlotPhgFixedMenu.Checked()) PlotPhg(halvern, 0, index);
    if (halvern.ConMdiFrm.PlotPhgMobileMenu.Checked()) PlotPhg(halvern, 1, index);
}

/// The view goes along with a tracked station, side by side, each with the frame that the one before has left.
void FollowTracked(Halvern& halvern, const Report& report)
{
    const auto& map = halvern.Map;
    const auto follow = [&] { GoToView(halvern, report.latitude, report.longitude, map.MapRange); };
    if (report.latitude > map.MapTopLat) follow();
    if (report.latitude < map.MapBottomLat) follow();
    if (report.longitude < map.MapRightLon) follow();
    if (report.longitude > map.MapLeftLon) follow();
}

void ReactToMove(Halvern& halvern, const Report& report, int index, char state)
{
    auto& plot = halvern.Map.StationPlot;
    if (!report.IsObject() && index < static_cast<int>(plot.size())) plot[index].Color = colour::Cyan;
    PlaceSymbol(halvern, index, report.latitude, report.longitude);
    if (state == mark::Alarm) {
        GoToView(halvern, report.latitude, report.longitude, 2.0);
        halvern.Tell(Icon::None, "Alarmed Station has moved.");
    } else if (state == mark::Track) {
        FollowTracked(halvern, report);
    }
}

void UpdateKnownStation(Halvern& halvern, const Report& report, int index)
{
    auto& store = halvern.PositionFrm.PosLst;
    const auto& old = store.Row(index);
    const char state = ColumnAt(old, positionRow::State);
    const bool moved =
        report.latitudeText != positionRow::Latitude(old) || report.longitudeText != positionRow::Longitude(old);
    store.Replace(index, RowOf(halvern, report, state));
    if (moved) ReactToMove(halvern, report, index, state);
    if (!report.newSymbol) return;
    ChangeSymbol(halvern, index, report.symFile);
    PlaceSymbol(halvern, index, report.latitude, report.longitude);
}

/// Coordinates and symbol of a report. @return false where the report can't be placed.
bool ReadReport(const Halvern& halvern, Report& report, int index)
{
    if (report.info.size() < report.CodeColumn()) return false;
    if (!ReadCoordinate(report.info, report.Latitude(), LatTextToDegrees, report.latitudeText, report.latitude) ||
        !ReadCoordinate(report.info, report.Longitude(), LonTextToDegrees, report.longitudeText, report.longitude))
        return false;
    if (index != NotFound) {
        const auto& row = halvern.PositionFrm.PosLst.Row(index);
        if (ColumnAt(row, positionRow::Table) == report.Table() && ColumnAt(row, positionRow::Code) == report.Code())
            return true;
    }
    report.newSymbol = true;
    report.symFile = SymbolOf(halvern, report);
    return report.symFile != NoSymbol;
}

} // namespace

bool DecodePosition(Halvern& halvern, std::string& call, std::string& info, float& latitude, float& longitude)
{
    auto& store = halvern.PositionFrm.PosLst;
    Report report{.call = call, .info = info, .stamped = ColumnAt(info, 8) == 'z'};
    bool good = PassesSymbolFilter(halvern, report);
    halvern.Engine.LastUtc = UtcNow(halvern.Outside.clock);
    const int index = store.Find(call);
    good = good && ReadReport(halvern, report, index);
    if (!good) {
        call = PacNoGood;
        return true;
    }
    latitude = report.latitude;
    longitude = report.longitude;
    if (store.Count() == LastStation) {
        StartStoresAgain(halvern, "PosSub", "32,000 stations");
        return false;
    }
    if (index == NotFound || IsGone(store.Row(index)))
        FileNewStation(halvern, report, index);
    else
        UpdateKnownStation(halvern, report, index);
    return true;
}

} // namespace halvern
