// SPDX-License-Identifier: GPL-3.0-or-later
#include "relay/NetDecay.h"

#include <set>

#include "platform/Text.h"
#include "protocol/UtcTime.h"
#include "state/Rows.h"
#include "view/Plotting.h"

namespace halvern {
namespace {

constexpr int TicksToLook = 5; ///< the count goes on from 1, so the first look comes a minute later than the others
constexpr int TwoHours = 200, OneDay = 2400; // hours and minutes as they are written, HHMM

bool IsOld(std::string_view row, int now)
{
    const char type = ColumnAt(row, positionRow::Type);
    if (type == '/' || type == '@' || type == ';' || ColumnAt(row, positionRow::State) == mark::Killed) return false;
    const int heard = static_cast<int>(LeadingNumber(positionRow::HourMinute(row)));
    return heard + TwoHours <= (now < heard ? now + OneDay : now);
}

/// @return the stations that were retired, as their packets write them
std::set<std::string, std::less<>> RetireStations(Halvern& halvern, int now)
{
    std::set<std::string, std::less<>> retired;
    auto& stations = halvern.PositionFrm.PosLst;
    for (int i = 0; i < stations.Count(); ++i) {
        const auto row = stations.Row(i);
        if (!IsOld(row, now)) continue;
        HideSymbol(halvern, i);
        stations.Replace(i, WithMark(row, mark::Killed));
        retired.emplace(TrimmedRight(positionRow::Call(row)));
    }
    return retired;
}

void LookThrough(Halvern& halvern)
{
    if (halvern.PositionFrm.PosLst.Count() == 1) return;
    const auto utc = UtcNow(halvern.Outside.clock);
    const auto retired = RetireStations(halvern, utc.hour * 100 + utc.minute);
    if (retired.empty()) return;
    auto& raw = halvern.TerminalFrm.RawPacketLst;
    raw.RemoveIf([&](int index) {
        const std::string_view row = raw.Row(index);
        return retired.contains(row.substr(0, std::min(row.find('>'), row.size())));
    });
}

} // namespace

void NetDecayTick(Halvern& halvern)
{
    auto& main = halvern.ConMdiFrm;
    main.NetDecayTmr.SetEnabled(false);
    if (++main.DecayTicks == TicksToLook) {
        main.DecayTicks = 1;
        LookThrough(halvern);
    }
    main.NetDecayTmr.SetEnabled(true);
}

} // namespace halvern
