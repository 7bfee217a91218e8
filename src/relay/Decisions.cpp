// SPDX-License-Identifier: GPL-3.0-or-later
#include "relay/Decisions.h"

#include <array>
#include <utility>

#include "platform/Text.h"
#include "protocol/UtcTime.h"
#include "state/Rows.h"

namespace halvern {
namespace {

constexpr int MostRows = 2000;
/// So many go at a time: taking the first row out of many costs as much as taking out a hundred.
constexpr int OldRows = 100;

/// In the order of `Reason`. "%w" is the word, "%h" the hops, "%l" the limit.
constexpr std::array<std::string_view, 27> Words{
    "passed",
    "passed: buddy",
    "passed: weather call",
    "passed after the hold",
    "repeated for WIDE1-1",
    "repeated for the own call",
    "held",
    "a newer message took its place",
    "another gate was first",
    "no packet",
    "Internet to radio is off",
    "no port is open to send it by",
    "own packet",
    "path says %w",
    "text says %w",
    "third party",
    "query",
    "addressee is heard direct on radio",
    "kind of packet that stays on the Internet",
    "not from a buddy",
    "sender is heard direct on radio",
    "addressee not heard on radio",
    "addressee's hops are not known",
    "too many hops: %h, limit %l",
    "path does not name this station",
    "its entry in the path is used already",
    "not yet its turn in the path",
};
static_assert(Words.size() == static_cast<std::size_t>(Reason::NotNext) + 1);

/// In the order of `Way`, as wide as their columns.
constexpr std::array<std::string_view, 3> Ways{"to Internet", "to radio   ", "repeat     "};

/// "dd/hh:mm:ss"
std::string Stamp(const Moment& now)
{
    auto text = DayHourMinuteSecond(now);
    return text.insert(6, ":").insert(4, ":").insert(2, "/");
}

/// Whom a message is for, or the name of an object; empty for the rest.
std::string_view NameIn(std::string_view info)
{
    const bool named = info.starts_with(":") || info.starts_with(";");
    return named ? Columns(info, 2, 9) : std::string_view{};
}

bool LetsIn(const std::string& filter, std::string_view row)
{
    if (filter.empty()) return true;
    return Holds(UpperCase(gateRow::Call(row)), filter) || Holds(UpperCase(gateRow::Name(row)), filter);
}

std::string FilterOf(const Halvern& halvern)
{
    return UpperCase(Trimmed(halvern.GateFrm.CallTxt.Text()));
}

void AddBounded(List& list, const std::string& row)
{
    if (list.Count() >= MostRows) list.RemoveIf([](int index) { return index < OldRows; });
    list.Add(row);
}

} // namespace

bool WentOut(const Decision& decision)
{
    return decision.reason <= Reason::RepeatedForOwnCall;
}

std::string WordsOf(const Decision& decision)
{
    std::string text(Words[static_cast<std::size_t>(decision.reason)]);
    const std::pair<std::string_view, std::string> values[] = {{"%w", std::string(decision.word)},
                                                               {"%h", std::to_string(decision.hops)},
                                                               {"%l", std::to_string(decision.limit)}};
    for (const auto& [mark, value] : values)
        if (const auto at = text.find(mark); at != std::string::npos) text.replace(at, mark.size(), value);
    return text;
}

Decision Note(Halvern& halvern, Way way, std::string_view source, std::string_view info, const Decision& decision)
{
    if (decision.reason == Reason::NoPacket || decision.reason == Reason::Off) return decision;
    auto row = Stamp(UtcNow(halvern.Outside.clock));
    row.append(" ").append(Ways[static_cast<std::size_t>(way)]).append(" ");
    row.append(CallField(source)).append(" ").append(CallField(NameIn(info))).append(" ").append(WordsOf(decision));
    AddBounded(halvern.ConMdiFrm.DecisionLst, row);
    if (LetsIn(FilterOf(halvern), row)) AddBounded(halvern.GateFrm.GateLst, row);
    return decision;
}

void FilterDecisions(Halvern& halvern)
{
    const auto& all = halvern.ConMdiFrm.DecisionLst;
    auto& shown = halvern.GateFrm.GateLst;
    const auto filter = FilterOf(halvern);
    shown.Clear();
    for (int i = 0; i < all.Count(); ++i)
        if (LetsIn(filter, all.Row(i))) shown.Add(all.Row(i));
}

} // namespace halvern
