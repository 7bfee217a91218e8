// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/Query.h"

#include <array>

#include "platform/Text.h"
#include "state/Rows.h"
#include "transmit/Send.h"

namespace halvern {
namespace {

struct Query {
    const char* text;
    bool addressed = true;
    const char* byPsk63 = nullptr; ///< where it is another text
    bool namesStation = false;     ///< the station in question follows
};

/// In the order of `QueryOpt`. Gateways on HF have always been asked with a second question mark.
constexpr std::array<Query, 11> Queries{{{"?APRS?", false},
                                         {"?WX?", false},
                                         {"?IGATE", false, "?IGATE?"},
                                         {"?APRS?"},
                                         {"?APRSP"},
                                         {"?APRSS"},
                                         {"?APRSM"},
                                         {"?APRSO"},
                                         {"?APRSD"},
                                         {"?APRSH ", true, nullptr, true},
                                         {"?APRST"}}};

bool CanBeAsked(std::string_view row)
{
    const char type = ColumnAt(row, positionRow::Type);
    return ColumnAt(row, positionRow::State) != mark::Killed && (type == '=' || type == '@');
}

/// @return false where something is missing, which is told
bool IsComplete(Halvern& halvern, const Query& query)
{
    const auto& form = halvern.QueryFrm;
    if (query.namesStation && form.HeardTxt.Text().empty()) {
        halvern.Tell(Icon::None, "You have to enter a call sign into the Have You Heard Call Sign Text Box");
        return false;
    }
    if (query.addressed && form.CallSignLst.Selected() < 0) {
        halvern.Tell(Icon::None, "You have to select a call sign.");
        return false;
    }
    return true;
}

std::string PayloadOf(const QueryForm& form, const Query& query, const char* text)
{
    const auto target = query.addressed ? ":" + CallField(form.CallSignLst.Text()) + ":" : std::string();
    return target + text + (query.namesStation ? form.HeardTxt.Text() : std::string());
}

} // namespace

void OpenQuery(Halvern& halvern)
{
    auto& form = halvern.QueryFrm;
    const auto& stations = halvern.PositionFrm.PosLst;
    form.CallSignLst.Clear();
    for (int i = 0; i < stations.Count(); ++i)
        if (CanBeAsked(stations.Row(i))) form.CallSignLst.Add(stationRow::Call(stations.Row(i)));
    form.Show();
}

void SendQuery(Halvern& halvern)
{
    auto& form = halvern.QueryFrm;
    const int chosen = form.QueryOpt.Selected();
    if (chosen < 0) return;
    const auto& query = ElementOf(Queries, chosen);
    if (!IsComplete(halvern, query)) return;
    const auto path = PathOrNothing(halvern.MessageFrm.MailUnPath.Text());
    Send(halvern, {PayloadOf(form, query, query.text), std::string(path)}, Road::Radio);
    Send(halvern, {PayloadOf(form, query, query.byPsk63 != nullptr ? query.byPsk63 : query.text)}, Road::Psk63);
    form.Unload();
}

} // namespace halvern
