// SPDX-License-Identifier: GPL-3.0-or-later
#include "relay/Digipeater.h"

#include "platform/Text.h"
#include "transmit/Send.h"

namespace halvern {
namespace {

constexpr const char* RepeatedAlias = "WIDE1-1";

void RepeatFor(Halvern& halvern, ReceivedFrame& frame, const std::string& call)
{
    const auto before = frame.used;
    DigiSubstitute(frame.path, frame.used, call, halvern.Engine.OwnCall);
    if (frame.used == before) return;
    const StationActs about(halvern.All, frame.source);
    Send(halvern, {frame.info, std::string(Columns(frame.path, 2)), frame.source, frame.dest}, Road::Radio);
}

} // namespace

void Digipeat(Halvern& halvern, ReceivedFrame& frame)
{
    if (halvern.SetUpfrm.MyAlias == RepeatedAlias) RepeatFor(halvern, frame, RepeatedAlias);
    RepeatFor(halvern, frame, halvern.Engine.OwnCall);
}

void DigiSubstitute(std::string& path, std::int16_t& count, std::string_view call, std::string_view ownCall)
{
    const auto entries = Columns(path, 2);
    const auto found = PositionOf(entries, call);
    if (found == 0 || call.empty()) return; // a station without a call repeats nothing
    const auto behind = found + call.size();
    const bool next = found == 1 || ColumnAt(entries, found - 2) == '*';
    if (!next || ColumnAt(entries, behind) == '*') return;
    path = "," + std::string(entries.substr(0, found - 1)) + std::string(ownCall) + "*" +
           std::string(Columns(entries, behind));
    ++count;
}

} // namespace halvern
