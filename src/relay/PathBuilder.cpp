// SPDX-License-Identifier: GPL-3.0-or-later
#include "relay/PathBuilder.h"

#include <algorithm>
#include <array>

#include "platform/Text.h"
#include "transmit/OwnTexts.h"

namespace halvern {
namespace {

constexpr int DigiCall = 4; // the choice behind the four aliases
constexpr std::int16_t MostDigis = 8, ManyHops = 3;

enum class Closes { ItsOwnEntry, AllAliases };

/// What an alias does, as the first entry and as a later one.
struct AliasRule {
    const char* alias;
    std::int16_t hopsFirst;
    bool setsHops;           ///< the first entry sets the count of hops instead of adding to it
    std::int16_t hopsLater;  ///< a second WIDE2-1 costs its neighbours more than the first
    std::int16_t mostBefore; ///< entries that may stand in front of it
    Closes closes;
    const char *warning, *refusal;
};

constexpr const char* FixedStationWarning =
    "If you are a fixed non moving station then the use of WIDE1-1 is not recomended. Halvern will allow you to use "
    "this path.";

constexpr std::array<AliasRule, DigiCall> Aliases{{
    {"WIDE1-1", 1, true, 0, 0, Closes::ItsOwnEntry, FixedStationWarning,
     "You can only use WIDE1-1 as your first Digi."},
    {"WIDE2-1", 1, false, 2, 32767, Closes::ItsOwnEntry, nullptr, nullptr},
    {"WIDE2-2", 2, false, 2, 1, Closes::AllAliases, nullptr, "You can only use WIDE2-2 as your first or second digi"},
    {"WIDE3-3", 3, false, 0, 0, Closes::AllAliases, nullptr, "You can only use WIDE3-3 as your first digi"},
}};

void SetAliasesEnabled(AddPathForm& form, bool enabled)
{
    for (int alias = 0; alias < DigiCall; ++alias) form.PathOpt.SetEntryEnabled(alias, enabled);
}

void Append(AddPathForm& form, const std::string& entry, std::int16_t hops)
{
    const auto& path = form.PathLbl.Caption();
    form.PathLbl.SetCaption(path.empty() ? entry : path + "," + entry);
    for (; hops > 0; --hops) CountUp(form.Hops);
    CountUp(form.Digis);
}

void AppendAlias(Halvern& halvern, int choice)
{
    auto& form = halvern.AddPathFrm;
    const auto& rule = ElementOf(Aliases, choice);
    const bool first = form.PathLbl.Caption().empty();
    if (!first && (rule.mostBefore == 0 || form.Digis > rule.mostBefore)) return halvern.Tell(Icon::None, rule.refusal);
    if (first && rule.setsHops) form.Hops = 0;
    Append(form, rule.alias, first ? rule.hopsFirst : rule.hopsLater);
    if (rule.closes == Closes::AllAliases)
        SetAliasesEnabled(form, false);
    else
        form.PathOpt.SetEntryEnabled(choice, false);
    if (rule.warning != nullptr) halvern.Tell(Icon::None, rule.warning);
}

bool MayBeDigi(const SetUpForm& setUp, const std::string& call)
{
    constexpr std::array<std::string_view, 5> reserved{"RELAY", "WIDE", "TRACE", "TCPIP", "TCPXX"};
    return call != OwnCallOf(setUp) &&
           std::ranges::none_of(reserved, [&](std::string_view word) { return Holds(call, word); });
}

void AppendCall(Halvern& halvern)
{
    auto& form = halvern.AddPathFrm;
    if (halvern.SetUpfrm.CallSignTxt.Text().empty()) {
        halvern.Tell(Icon::None, "You have to enter your call sign in the call sign field on the station tab located "
                                 "on the setup form first.");
        return CancelPath(form);
    }
    form.PathCallTxt.SetText(UpperCase(form.PathCallTxt.Text()));
    const auto call = form.PathCallTxt.Text();
    if (!MayBeDigi(halvern.SetUpfrm, call))
        return halvern.Tell(Icon::None, "You can not enter RELAY or WIDE or TRACE or TCPIP or TCPXX or this stations "
                                        "MYcall into the FCC Digi Call Sign Box");
    Append(form, call, 1);
    form.PathCallTxt.SetText("");
    if (form.Digis > MostDigis) {
        halvern.Tell(Icon::None, "You have more than 8 digi's in your path statement. AX25 only allows 8 total. Please "
                                 "try again.");
        ClearPath(form);
    }
    form.PathOpt.Select(DigiCall);
}

} // namespace

void UpdatePath(Halvern& halvern)
{
    const auto& form = halvern.AddPathFrm;
    if (!form.PathCallTxt.Text().empty()) return AppendCall(halvern);
    if (const int choice = form.PathOpt.Selected(); choice >= 0 && choice < DigiCall) AppendAlias(halvern, choice);
}

void ClearPath(AddPathForm& form)
{
    form.PathLbl.SetCaption("");
    form.PathCallTxt.SetText("");
    form.PathOpt.Select(0);
    SetAliasesEnabled(form, true);
    form.Hops = form.Digis = 0;
}

void CancelPath(AddPathForm& form)
{
    form.PathLbl.SetCaption("");
    form.Hide();
}

void AcceptPath(Halvern& halvern)
{
    const auto& form = halvern.AddPathFrm;
    if (form.Hops > ManyHops)
        halvern.Tell(Icon::None,
                     "You are using " + std::to_string(form.Hops) +
                         " digi hops total. Once you get above 3 hops your chances of having a packet collisions is "
                         "better than 50%. More than 3 hops is not recomended. You are causing a lot of QRM. Halvern "
                         "will allow you to use this path but beware of the QRM you are creating.");
    halvern.AddPathFrm.Hide();
}

void AllowUpdate(AddPathForm& form)
{
    form.PathUpDateCmd.SetEnabled(!form.PathOpt.On(DigiCall) || !form.PathCallTxt.Text().empty());
}

} // namespace halvern
