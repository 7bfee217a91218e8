// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/Snapshot.h"

#include <algorithm>
#include <array>
#include <utility>

#include "engine/ResetStores.h"
#include "map/StationInfo.h"
#include "platform/Text.h"
#include "protocol/PositionText.h"
#include "state/Rows.h"
#include "view/Plotting.h"
#include "view/SymbolFile.h"

namespace halvern {
namespace {

constexpr const char* Blank = "Blank"; ///< the only line of an empty list's file
constexpr const char* PositionsFile = "Pos.txt";
constexpr std::size_t BehindStamp = positionRow::Stamp.first + positionRow::Stamp.count; ///< its column has a "z"

std::string PathOf(const Halvern& halvern, const char* file)
{
    return halvern.ProgramFolder + "\\" + file;
}

// --- the files -------------------------------------------------------------------------------------------------------

struct ListFile {
    const char* file;
    List& (*store)(Halvern&);
    bool station; ///< emptied by every view; the others keep their rows under a symbol filter
};

const std::array<ListFile, 9> ListFiles{{
    {"Status.txt", [](Halvern& h) -> List& { return h.StatusFrm.StatusLst; }, true},
    {"Digi.txt", [](Halvern& h) -> List& { return h.DigiFrm.DigiLst; }, true},
    {"Msgtoyou.txt", [](Halvern& h) -> List& { return h.MessageFrm.MsgToYouLst; }, false},
    {"OutMsg.txt", [](Halvern& h) -> List& { return h.MessageFrm.OutMsg; }, false},
    {"Traffic.txt", [](Halvern& h) -> List& { return h.MessageFrm.TrafficLst; }, false},
    {"Bullmsg.txt", [](Halvern& h) -> List& { return h.MessageFrm.BullLst; }, false},
    {"Object.txt", [](Halvern& h) -> List& { return h.ConMdiFrm.MyObjectLst; }, false},
    {"Objtrans.txt", [](Halvern& h) -> List& { return h.ConMdiFrm.TransmitLst; }, false},
    {"Resource.txt", [](Halvern& h) -> List& { return h.DxFrm.ResourceLst; }, true},
}};

struct TimerFiles {
    const char *interval, *enabled;
    Timer& (*timer)(Halvern&);
};

const std::array<TimerFiles, 2> TimerFilesOf{{
    {"MsgTimerint.txt", "MsgTimer.txt", [](Halvern& h) -> Timer& { return h.MessageFrm.Timer1; }},
    {"Objecttimerint.txt", "Objecttimer.txt", [](Halvern& h) -> Timer& { return h.ConMdiFrm.MyObjectTimer; }},
}};

std::string LineOf(std::string_view text)
{
    return std::string(text).append(CrLf);
}

std::string TextOf(const List& list)
{
    std::string text;
    for (int i = 0; i < list.Count(); ++i) text.append(list.Row(i)).append(CrLf);
    return list.Count() == 0 ? LineOf(Blank) : text;
}

/// Killed objects are not kept; the row of the own station always is.
std::string PositionsText(const List& stations)
{
    std::string text;
    for (int i = 0; i < stations.Count(); ++i)
        if (ColumnAt(stations.Row(i), positionRow::State) != mark::Killed) text += LineOf(stations.Row(i));
    return text;
}

struct NamedText {
    const char* file;
    std::string text;
};

/// Before any station was heard there is nothing to keep but the own row and the timers.
std::vector<NamedText> SnapshotTexts(Halvern& halvern)
{
    const auto& stations = halvern.PositionFrm.PosLst;
    const bool alone = stations.Count() == 1;
    std::vector<NamedText> texts;
    for (const auto& each : ListFiles)
        texts.push_back({each.file, alone ? LineOf(Blank) : TextOf(each.store(halvern))});
    for (const auto& each : TimerFilesOf) {
        const auto& timer = each.timer(halvern);
        texts.push_back({each.interval, LineOf(std::to_string(timer.Interval()))});
        texts.push_back({each.enabled, LineOf(timer.Enabled() ? "True" : "False")});
    }
    texts.push_back({PositionsFile, alone ? LineOf(stations.Row(0)) : PositionsText(stations)});
    return texts;
}

// --- the way back ----------------------------------------------------------------------------------------------------

using Faults = std::vector<std::string>;

/// Reads a file of the kept state and takes it away.
std::string Fetch(Halvern& halvern, const char* file, Faults& faults)
{
    auto& files = halvern.Outside.files;
    const auto bytes = files.Read(PathOf(halvern, file));
    if (!bytes) faults.push_back(std::string("'") + file + "'");
    if (bytes) files.Remove(PathOf(halvern, file));
    return bytes.value_or("");
}

/// The picture of a kept row. A known station whose last report has no known table keeps the picture that it had, of
/// which the row knows nothing: it comes back as a dot.
std::string SymbolOf(const Halvern& halvern, std::string_view row)
{
    const auto file = [&](char table, char code) {
        return SymbolFileName(halvern.ProgramFolder, static_cast<unsigned char>(table),
                              static_cast<unsigned char>(code));
    };
    const auto own = file(ColumnAt(row, positionRow::Table), ColumnAt(row, positionRow::Code));
    return own.empty() ? file('/', '/') : own;
}

/// Puts a station's row into the store, at its end or over another, and the station on the map as it stood there.
/// @return false for a row that can't be placed
bool BringBack(Halvern& halvern, std::string_view row, int index)
{
    auto& stations = halvern.PositionFrm.PosLst;
    const auto latitude = static_cast<float>(LatTextToDegrees(positionRow::Latitude(row)));
    const auto longitude = static_cast<float>(LonTextToDegrees(positionRow::Longitude(row)));
    if (row.size() < positionRow::Code || ColumnAt(row, BehindStamp) != 'z') return false;
    if (latitude == 0 || longitude == 0 || index > LastStation) return false;
    const std::string type(Columns(row, positionRow::Type, 1));
    const bool added = index == stations.Count();
    if (added) stations.Add(row);
    halvern.Engine.SourceCall = SenderOf(row); // an object's label tells whether it is an own one
    try {
        NewSymbol(halvern, index, type + "Garth", SymbolOf(halvern, row), stationRow::Call(row), latitude, longitude);
    } catch (const RuntimeFailure&) {
        if (added) stations.Remove(index);
        return false;
    }
    if (!added) stations.Replace(index, row);
    if (IsGone(row)) HideSymbol(halvern, index);
    return true;
}

/// The first row is the own station's, and the emptied store has it again: it stays, with the time of now. Where the
/// store begins with another station, which had no own one, the kept row takes that place.
void RestorePositions(Halvern& halvern, Faults& faults)
{
    const auto text = Fetch(halvern, PositionsFile, faults);
    const auto rows = LinesOf(text);
    auto& stations = halvern.PositionFrm.PosLst;
    const bool begun = stations.Count() > 0;
    int damaged = 0;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const bool first = i == 0 && begun;
        if (first && stationRow::Call(rows[i]) == stationRow::Call(stations.Row(0))) continue;
        if (!BringBack(halvern, rows[i], first ? 0 : stations.Count())) ++damaged;
    }
    if (damaged > 0) faults.push_back(std::to_string(damaged) + " damaged rows of '" + PositionsFile + "'");
}

/// The own station's rows, which the emptied store has again, give way to the kept ones.
void RestoreList(Halvern& halvern, const ListFile& each, Faults& faults)
{
    const auto text = Fetch(halvern, each.file, faults);
    auto& store = each.store(halvern);
    if (each.station && !text.empty() && text != LineOf(Blank)) store.Clear();
    for (const auto row : LinesOf(text))
        if (row != Blank) store.Add(row);
}

void RestoreTimer(Halvern& halvern, const TimerFiles& each, Faults& faults)
{
    constexpr double longest = 65535; // milliseconds
    const auto interval = Fetch(halvern, each.interval, faults), enabled = Fetch(halvern, each.enabled, faults);
    auto& timer = each.timer(halvern);
    timer.SetInterval(static_cast<int>(std::clamp(LeadingNumber(interval), 0.0, longest)));
    timer.SetEnabled(UpperCase(Trimmed(enabled)).starts_with("TRUE"));
}

/// Objects and their stages are parallel, whatever the files say.
void EvenOut(MainForm& main)
{
    for (List* longer : {&main.MyObjectLst, &main.TransmitLst})
        while (longer->Count() > std::min(main.MyObjectLst.Count(), main.TransmitLst.Count()))
            longer->Remove(longer->Count() - 1);
}

void RemoveAllFiles(Halvern& halvern)
{
    const auto remove = [&](const char* file) { halvern.Outside.files.Remove(PathOf(halvern, file)); };
    remove(PositionsFile);
    for (const auto& each : ListFiles) remove(each.file);
    for (const auto& each : TimerFilesOf) remove(each.interval), remove(each.enabled);
}

} // namespace

bool SnapshotStands(const Halvern& halvern)
{
    return halvern.Outside.files.Exists(PathOf(halvern, PositionsFile));
}

std::string SnapshotState(Halvern& halvern)
{
    if (SnapshotStands(halvern)) return {};
    for (const auto& [file, text] : SnapshotTexts(halvern)) {
        const auto trouble = halvern.Outside.files.Write(PathOf(halvern, file), text);
        if (trouble.empty()) continue;
        RemoveAllFiles(halvern);
        return trouble;
    }
    return {};
}

std::vector<std::string> RestoreState(Halvern& halvern, bool stationsAlone)
{
    Faults faults;
    RestorePositions(halvern, faults);
    for (const auto& each : ListFiles)
        if (each.station || !stationsAlone) RestoreList(halvern, each, faults);
    if (!stationsAlone) {
        for (const auto& each : TimerFilesOf) RestoreTimer(halvern, each, faults);
        EvenOut(halvern.ConMdiFrm);
    }
    RemoveAllFiles(halvern);
    return faults;
}

void RestoreView(Halvern& halvern)
{
    auto& main = halvern.ConMdiFrm;
    main.RestoreMenu.SetVisible(false);
    ResetStores(halvern, "RestoreMenu");
    const auto faults = RestoreState(halvern);
    halvern.Engine.ReviewMode = false;
    main.LogMenu.SetEnabled(true);
    main.ClearMenu.SetEnabled(true);
    if (faults.empty()) return;
    std::string all;
    for (const auto& fault : faults) all += (all.empty() ? "" : ", ") + fault;
    throw RuntimeFailure(failure::FileNotFound, "File not found: " + all + ". All else is back.");
}

} // namespace halvern
