// SPDX-License-Identifier: GPL-3.0-or-later
#include "relay/Digipeater.h"

#include "platform/Text.h"
#include "transmit/Send.h"

namespace halvern {
namespace {

constexpr const char* RepeatedAlias = "WIDE1-1";

Decision RepeatFor(Halvern& halvern, ReceivedFrame& frame, const std::string& call, Reason repeated)
{
    if (const auto refusal = DigiSubstitute(frame.path, frame.used, call, halvern.Engine.OwnCall)) return *refusal;
    const StationActs about(halvern.All, frame.source);
    Send(halvern, {frame.info, std::string(Columns(frame.path, 2)), frame.source, frame.dest}, Road::Radio);
    return Note(halvern, Way::Repeat, frame.source, frame.info, repeated);
}

} // namespace

Decision Digipeat(Halvern& halvern, ReceivedFrame& frame)
{
    Decision alias = Reason::NotNamed;
    if (halvern.SetUpfrm.MyAlias == RepeatedAlias)
        alias = RepeatFor(halvern, frame, RepeatedAlias, Reason::RepeatedForAlias);
    const auto own = RepeatFor(halvern, frame, halvern.Engine.OwnCall, Reason::RepeatedForOwnCall);
    if (WentOut(own)) return own;
    if (WentOut(alias)) return alias;
    const auto& refusal = own.reason == Reason::NotNamed ? alias : own;
    return Note(halvern, Way::Repeat, frame.source, frame.info, refusal);
}

std::optional<Reason> DigiSubstitute(std::string& path, std::int16_t& count, std::string_view call,
                                     std::string_view ownCall)
{
    const auto entries = Columns(path, 2);
    const auto found = PositionOf(entries, call);
    if (found == 0 || call.empty()) return Reason::NotNamed; // a station without a call repeats nothing
    const auto behind = found + call.size();
    if (ColumnAt(entries, behind) == '*') return Reason::UsedAlready;
    const bool next = found == 1 || ColumnAt(entries, found - 2) == '*';
    if (!next) return Reason::NotNext;
    path = "," + std::string(entries.substr(0, found - 1)) + std::string(ownCall) + "*" +
           std::string(Columns(entries, behind));
    ++count;
    return {};
}

} // namespace halvern
