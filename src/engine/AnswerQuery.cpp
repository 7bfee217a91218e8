// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/AnswerQuery.h"

#include <array>

#include "engine/OwnTexts.h"
#include "ports/Kiss.h"
#include "ports/Psk63Send.h"
#include "state/Rows.h"

namespace halvern {
namespace {

constexpr int HeardPlaces = 18;    ///< hour counts that an answer has
constexpr int MostHeardHours = 19; ///< hour columns that are read for it
constexpr std::size_t DirectPlaces = 8;

void Send(Halvern& halvern, std::string payload)
{
    SendPacket(halvern, halvern.Engine.OwnDest, halvern.Engine.OwnCall, PathOrNothing(halvern.SetUpfrm.UnPath.Text()),
               payload, "");
}

bool Psk63IsOpen(const Halvern& halvern)
{
    return halvern.ConMdiFrm.Psk63Soc.Connected();
}

Psk63Packet AsPsk63(const Halvern& halvern, std::string_view payload)
{
    return SameInBothDialects(OwnLine(halvern.Engine.OwnCall, halvern.Engine.OwnDest, "", payload));
}

void RepeatOnPsk63(Halvern& halvern, std::string_view payload)
{
    if (Psk63IsOpen(halvern)) SendByPsk63(halvern, {AsPsk63(halvern, payload)});
}

/// The own position as the answers tell it. While a GPS gives the position there is no fixed one to tell.
std::string PositionText(const Halvern& halvern)
{
    return halvern.Engine.GpsPositionOn ? std::string{} : OwnPosition(halvern.SetUpfrm);
}

std::string AskingField(const Halvern& halvern)
{
    return UpperCase(CallField(halvern.Engine.SourceCall));
}

void AnswerPosition(Halvern& halvern, std::string_view)
{
    Send(halvern, PositionText(halvern));
    RepeatOnPsk63(halvern, PositionText(halvern));
}

void AnswerStatus(Halvern& halvern, std::string_view)
{
    Send(halvern, OwnStatus(halvern.SetUpfrm));
    RepeatOnPsk63(halvern, OwnStatus(halvern.SetUpfrm));
}

void AnswerBoth(Halvern& halvern, std::string_view)
{
    Send(halvern, PositionText(halvern));
    Send(halvern, OwnStatus(halvern.SetUpfrm));
    if (!Psk63IsOpen(halvern)) return;
    auto position = AsPsk63(halvern, PositionText(halvern));
    position.behind = "\r";
    SendByPsk63(halvern, {position, AsPsk63(halvern, OwnStatus(halvern.SetUpfrm))});
}

/// What waits for the asking station is sent again at once.
void AnswerOutstanding(Halvern& halvern, std::string_view)
{
    auto& form = halvern.MessageFrm;
    for (int i = 0; i < form.OutMsg.Count(); ++i) {
        if (UpperCase(queuedRow::Name(form.OutMsg.Row(i))) != AskingField(halvern)) continue;
        form.Timer1.SetInterval(1);
        return;
    }
}

/// Own objects are not sent again on a query: their schedule does that.
void AnswerObjects(Halvern&, std::string_view) {}

/// The first eight stations heard without a digipeater; the places of those that are missing stay as blanks.
void AnswerHeardDirect(Halvern& halvern, std::string_view)
{
    const auto& store = halvern.DigiFrm.DigiLst;
    std::array<std::string, DirectPlaces> names;
    std::size_t found = 0;
    for (int i = 0; i < store.Count() && found < DirectPlaces; ++i)
        if (!Holds(store.Row(i), "*")) names[found++] = TrimmedRight(stationRow::Call(store.Row(i)));
    if (found == 0) return;
    auto payload = ":" + AskingField(halvern) + ":Dir= " + names[0];
    for (std::size_t i = 1; i < DirectPlaces; ++i) payload += " " + names[i];
    Send(halvern, payload);
    RepeatOnPsk63(halvern, payload);
}

/// The first station whose call the query carries from column 8 on; what stands behind the call is not looked at.
int HeardRow(const Grid& grid, std::string_view query)
{
    for (int row = 1; row < grid.Rows(); ++row)
        if (const auto& call = grid.Cell(row, 0); !call.empty() && Columns(query, 8, call.size()) == call) return row;
    return NotFound;
}

/// The hour counts of one station, the call from column 8 of the query on.
void AnswerHeard(Halvern& halvern, std::string_view query)
{
    const auto& grid = halvern.HeardFrm.HeardGrid;
    if (grid.Rows() <= 2) return;
    auto payload = ":" + AskingField(halvern) + ":Hrd= ";
    const int row = HeardRow(grid, query);
    if (row == NotFound) {
        payload += "0";
    } else {
        std::array<std::string, MostHeardHours> counts;
        if (grid.Cols() - 1 > MostHeardHours) throw RuntimeFailure(failure::Subscript, "Subscript out of range");
        for (int column = 1; column < grid.Cols(); ++column) counts[column - 1] = grid.Cell(row, column);
        payload += counts[0];
        for (int i = 1; i < HeardPlaces; ++i) payload += " " + counts[i];
    }
    Send(halvern, payload);
    RepeatOnPsk63(halvern, payload);
}

/// The path by which the asking station is heard.
void AnswerTrace(Halvern& halvern, std::string_view)
{
    const auto& store = halvern.DigiFrm.DigiLst;
    for (int i = 0; i < store.Count(); ++i)
        if (UpperCase(stationRow::Call(store.Row(i))) == AskingField(halvern))
            Send(halvern, ":" + AskingField(halvern) + ":" + halvern.Engine.SourceCall + ">" +
                              std::string(stationRow::Report(store.Row(i))));
}

void AnswerIgate(Halvern& halvern, std::string_view query)
{
    if (halvern.Engine.IgateOn) AnswerBoth(halvern, query);
}

void AnswerWeather(Halvern& halvern, std::string_view query)
{
    if (halvern.Engine.WxQueryFlag) AnswerPosition(halvern, query);
}

struct Query {
    std::string_view name;
    void (*answer)(Halvern&, std::string_view);
};

constexpr std::array<Query, 11> Queries{{{"?APRS?", AnswerBoth},
                                         {"?APRSP", AnswerPosition},
                                         {"?APRSS", AnswerStatus},
                                         {"?APRSM", AnswerOutstanding},
                                         {"?APRSO", AnswerObjects},
                                         {"?APRSD", AnswerHeardDirect},
                                         {"?APRSH", AnswerHeard},
                                         {"?PING?", AnswerTrace},
                                         {"?APRST", AnswerTrace},
                                         {"?IGATE", AnswerIgate},
                                         {"?WX?", AnswerWeather}}};

} // namespace

void AnswerQuery(Halvern& halvern, std::string_view query)
{
    for (const auto& [name, answer] : Queries)
        if (Columns(query, 1, 6) == name) return answer(halvern, query);
}

} // namespace halvern
