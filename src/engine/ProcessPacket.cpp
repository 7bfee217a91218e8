// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/ProcessPacket.h"

#include <algorithm>
#include <array>

#include "engine/AnswerQuery.h"
#include "engine/DecodePosition.h"
#include "engine/HeardCount.h"
#include "engine/PacketLog.h"
#include "engine/ReceiveMessage.h"
#include "engine/ReceiveObject.h"
#include "engine/ResetStores.h"
#include "engine/StationAhead.h"
#include "platform/Text.h"
#include "protocol/DecodeMicE.h"
#include "protocol/PacketHeader.h"
#include "protocol/Sentence.h"
#include "protocol/UtcTime.h"
#include "state/Rows.h"
#include "view/Geometry.h"

namespace halvern {
namespace {

constexpr int MostRawRows = 32700;
constexpr double EmergencyRange = 2.0; ///< nautical miles
constexpr std::string_view MicETypes = "\x1C\x1D'`";

/// Destinations that mode Normal lets in, by their beginnings.
constexpr std::array<std::string_view, 26> DestinationKeywords{
    "AP",   "BEACON", "MAIL", "QST",   "CQ",  "GPS", "ALL",  "AIR", "ID", "DF",  "DRILL", "DX",   "JAVA",
    "MICE", "QTH",    "SKY",  "SPACE", "SPC", "SYM", "TEST", "TLM", "WX", "ZIP", "DGPS",  "RTCM", "TEL"};

/// The line in hand behind its header.
struct Packet {
    Halvern& halvern;
    std::string info;
    std::string_view tag;
};

/// What a branch says of the line: it goes on to the heard count, or it ends here.
enum class Then { Count, End };

bool StartsWithOneOf(std::string_view text, std::string_view characters)
{
    return !text.empty() && characters.find(text.front()) != std::string_view::npos;
}

// --- intake ----------------------------------------------------------------------------------------------------------

/// Position of the ":" that ends the header, or 0 where the line has none that can be.
std::size_t EndOfHeader(std::string_view line)
{
    const auto colon = PositionOf(line, ':');
    return colon < 8 || colon == line.size() ? 0 : colon;
}

/// Server comments and lines that can't be packets leave no row. @return false for those.
bool TakeIn(Halvern& halvern, const std::string& line)
{
    if (line.starts_with("#") || !Holds(line, ">")) return false;
    const auto colon = EndOfHeader(line);
    if (colon == 0) return false;
    if (BearsArrival(Columns(line, colon + 1)))
        FileRaw(halvern, line + DayHourMinuteSecond(UtcNow(halvern.Outside.clock)));
    else
        FileRaw(halvern, line);
    return true;
}

/// TheNet nodes put their banner in front of the position.
std::string WithoutNodeBanner(std::string_view info)
{
    const auto position = info.starts_with("TheNet") ? PositionOf(info, '!') : 0;
    return std::string(position >= 1 && position <= 40 ? Columns(info, position) : info);
}

bool ModeLetsIn(const Halvern& halvern, std::string_view info)
{
    const auto& dest = halvern.Engine.DestCall;
    if (!halvern.SetUpfrm.AprsMode.On(0)) return dest == halvern.Engine.OwnDest;
    const auto begins = [&](std::string_view keyword) { return dest.starts_with(keyword); };
    return std::any_of(DestinationKeywords.begin(), DestinationKeywords.end(), begins) ||
           StartsWithOneOf(info, MicETypes);
}

// --- the branches ----------------------------------------------------------------------------------------------------

struct Placed {
    bool filed = false, storesReset = false;
    float latitude = 0, longitude = 0;
};

/// The position road: everything that is, or has been rewritten into, a plain report.
Placed FilePosition(Packet& packet)
{
    Placed placed;
    auto field = CallField(packet.halvern.Engine.SourceCall);
    placed.storesReset = !DecodePosition(packet.halvern, field, packet.info, placed.latitude, placed.longitude);
    placed.filed = !placed.storesReset && field != PacNoGood;
    return placed;
}

Then Position(Packet& packet)
{
    const auto placed = FilePosition(packet);
    if (placed.storesReset) return Then::End;
    if (placed.filed) KeepPath(packet.halvern, CallField(packet.halvern.Engine.SourceCall));
    return Then::Count;
}

Then MicE(Packet& packet)
{
    const char type = packet.info[0];
    MicEFields fields;
    DecodeMicE(packet.halvern.Engine.DestCall, packet.info, fields);
    if (packet.info == "PacketNoGood") return Then::End;
    packet.info = type;
    for (std::size_t i = 1; i < fields.size(); ++i) packet.info += fields[i];
    const auto placed = FilePosition(packet);
    if (!placed.filed) return Then::End;
    KeepPath(packet.halvern, CallField(packet.halvern.Engine.SourceCall));
    if (fields[6] == " Emergency") GoToView(packet.halvern, placed.latitude, placed.longitude, EmergencyRange);
    return Then::Count;
}

Then Sentence(Packet& packet)
{
    const auto& engine = packet.halvern.Engine;
    switch (SentenceToReport(engine.SourceCall, engine.DestCall, packet.info)) {
    case SentenceResult::Position:
        return Position(packet);
    case SentenceResult::NotDecoded:
        return Then::Count;
    case SentenceResult::Drop:
        break;
    }
    return Then::End;
}

Then Message(Packet& packet)
{
    return ReceiveMessage(packet.halvern, packet.info, packet.tag) ? Then::Count : Then::End;
}

Then Object(Packet& packet)
{
    return ReceiveObject(packet.halvern, packet.info) ? Then::Count : Then::End;
}

Then Status(Packet& packet)
{
    ReceiveStatus(packet.halvern, packet.info);
    return Then::Count;
}

Then Query(Packet& packet)
{
    AnswerQuery(packet.halvern, packet.info);
    return Then::Count;
}

/// Items, telemetry, weather without a position: the raw row is the only record.
Then NotDecoded(Packet&)
{
    return Then::Count;
}

Then UnknownType(Packet& packet)
{
    ReceiveUnknownType(packet.halvern, packet.info);
    return Then::Count;
}

struct Branch {
    std::string_view types; ///< first characters of the information field
    Then (*handle)(Packet&);
};

constexpr std::array<Branch, 8> Branches{{{MicETypes, MicE},
                                          {"!=/@", Position},
                                          {"$", Sentence},
                                          {":", Message},
                                          {";", Object},
                                          {">", Status},
                                          {"?", Query},
                                          {"#%)*T_", NotDecoded}}};

Then Dispatch(Packet& packet)
{
    for (const auto& branch : Branches)
        if (StartsWithOneOf(packet.info, branch.types)) return branch.handle(packet);
    return UnknownType(packet);
}

// --- the line --------------------------------------------------------------------------------------------------------

/// Puts the inner line of a third-party packet in the place of the outer one, in the raw store too; a mark on that row
/// tells the gate that it came out of one.
void Unwrap(Halvern& halvern, std::string& line, const std::string& info)
{
    line = info.substr(1);
    auto& raw = halvern.TerminalFrm.RawPacketLst;
    if (halvern.Engine.ReviewMode || raw.Count() == 0) return;
    raw.Remove(raw.Count() - 1);
    raw.Add(line);
    raw.Mark(raw.Count() - 1, true);
}

/// Reads the header into the engine's variables. @return the information field, or nothing for a line to drop.
std::optional<std::string> ReadLine(Halvern& halvern, const std::string& line)
{
    auto& engine = halvern.Engine;
    engine.PathText.clear();
    halvern.ConMdiFrm.StatusBar1.SetCaption(line);
    const auto colon = EndOfHeader(line);
    if (colon == 0) return {};
    const auto header = ReadPacketHeader(Columns(line, 1, colon));
    if (!header) return {};
    engine.SourceCall = header->source;
    engine.DestCall = header->dest;
    engine.PathText = header->path;
    return WithoutNodeBanner(Columns(line, colon + 1));
}

void HandleLine(Halvern& halvern, std::string& line, std::string_view tag)
{
    for (;;) {
        auto info = ReadLine(halvern, line);
        if (!info) return;
        if (halvern.Engine.DestCall == "RESORC") return halvern.DxFrm.ResourceLst.Add(*info);
        if (!ModeLetsIn(halvern, *info)) return;
        if (info->starts_with("}")) {
            Unwrap(halvern, line, *info);
            continue;
        }
        const auto source = halvern.Engine.SourceCall; // a copy: an answer on the way may be a packet too
        const StationActs about(halvern.All, source);
        Packet packet{halvern, std::move(*info), tag};
        if (Dispatch(packet) == Then::Count) CountHeard(halvern);
        return;
    }
}

/// Takes out the row of a new station whose symbol could not be loaded.
void RemovePlaceholder(Halvern& halvern)
{
    auto& store = halvern.PositionFrm.PosLst;
    if (store.Count() > 0 && store.Row(store.Count() - 1) == "Symbol No Good") store.Remove(store.Count() - 1);
}

} // namespace

bool BearsArrival(std::string_view info)
{
    if (StartsWithOneOf(info, "_#*") || info.starts_with("!!")) return true;
    if (info.starts_with("$")) return ColumnAt(info, 2) != 'G';
    if (StartsWithOneOf(info, "!-")) return ColumnAt(info, weatherRow::Code) == '_';
    return StartsWithOneOf(info, "/@") && ColumnAt(info, weatherRow::StampedCode) == '_';
}

void ProcessPacket(Halvern& halvern, std::string& line, std::string_view tag)
{
    RemoveAll(line, '\r');
    RemoveAll(line, '\n');
    if (halvern.TerminalFrm.RawPacketLst.Count() > MostRawRows)
        return StartStoresAgain(halvern, "StartAgain", "32,700 raw packets");
    try {
        const StationAhead ahead(halvern, line);
        if (!halvern.Engine.ReviewMode && !TakeIn(halvern, line)) return;
        ahead.FetchTexts();
        HandleLine(halvern, line, tag);
    } catch (const RuntimeFailure&) {
        RemovePlaceholder(halvern);
    } catch (...) {
        RemovePlaceholder(halvern);
        throw; // not the packet's fault: the dispatcher tells it
    }
}

} // namespace halvern
