// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/AnswerQuery.h"

#include <array>

#include "state/Rows.h"
#include "transmit/OwnTexts.h"
#include "transmit/Send.h"

namespace halvern {
namespace {

constexpr int HeardPlaces = 18;    ///< hour counts that an answer has
constexpr int MostHeardHours = 19; ///< hour columns that are read for it
constexpr std::size_t DirectPlaces = 8;

void AnswerByRadio(Halvern& halvern, const std::string& payload)
{
    Send(halvern, {.information = payload, .path = std::string(PathOrNothing(halvern.SetUpfrm.UnPath.Text()))},
         Road::Radio);
}

/// By radio, and the same text afresh by PSK63.
void Answer(Halvern& halvern, const std::string& payload)
{
    AnswerByRadio(halvern, payload);
    Send(halvern, {.information = payload}, Road::Psk63);
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
    Answer(halvern, PositionText(halvern));
}

void AnswerStatus(Halvern& halvern, std::string_view)
{
    Answer(halvern, OwnStatus(halvern.SetUpfrm));
}

void AnswerBoth(Halvern& halvern, std::string_view)
{
    const auto position = PositionText(halvern), status = OwnStatus(halvern.SetUpfrm);
    AnswerByRadio(halvern, position);
    AnswerByRadio(halvern, status);
    Send(halvern, std::vector{Packet{position}, Packet{status}}, Road::Psk63);
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
    Answer(halvern, payload);
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
        if (grid.Cols() - 1 > MostHeardHours) NoSuchRow();
        for (int column = 1; column < grid.Cols(); ++column) counts[column - 1] = grid.Cell(row, column);
        payload += counts[0];
        for (int i = 1; i < HeardPlaces; ++i) payload += " " + counts[i];
    }
    Answer(halvern, payload);
}

/// The path by which the asking station is heard.
void AnswerTrace(Halvern& halvern, std::string_view)
{
    const auto& store = halvern.DigiFrm.DigiLst;
    for (int i = 0; i < store.Count(); ++i)
        if (UpperCase(stationRow::Call(store.Row(i))) == AskingField(halvern))
            AnswerByRadio(halvern, ":" + AskingField(halvern) + ":" + halvern.Engine.SourceCall + ">" +
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
