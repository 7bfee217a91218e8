// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/SetupLists.h"

#include "platform/Text.h"

namespace halvern {
namespace {

constexpr int MostEntries = 20;
constexpr int BuiltInPaths = 2; ///< "NONE" and "WIDE2-2", which stay

bool Full(Halvern& halvern, const List& list, const std::string& what)
{
    if (list.Count() != MostEntries) return false;
    halvern.Tell(Icon::None, "You may not have more than 20 " + what +
                                 " total.\r\nYou will have to delete one path to make room for the new path.");
    return true;
}

bool NothingSelected(Halvern& halvern, const List& list, const std::string& what, const std::string& button)
{
    if (list.Selected() >= 0) return false;
    halvern.Tell(Icon::None, "You must click on " + what + " item before clicking on the " + button + " Button.");
    return true;
}

/// No answer and an empty one are alike.
std::string Asked(Halvern& halvern, const std::string& prompt, const std::string& title = ProgramTitle)
{
    return halvern.Outside.dialogs.Input(prompt, title).value_or("");
}

void AddCaller(Halvern& halvern, List& callers, const std::string& prompt, const std::string& refusal)
{
    const auto call = Asked(halvern, prompt, "ADD IGATE Buddies");
    if (call.empty()) return;
    if (callers.IndexOf(call) != NotFound) return halvern.Tell(Icon::None, call + refusal);
    callers.Add(call);
    callers.Preselect(callers.Count() - 1);
}

} // namespace

// --- paths -----------------------------------------------------------------------------------------------------------

void ChoosePath(SetUpForm& setUp)
{
    setUp.PathIndex = setUp.UnPath.Selected();
}

void RefuseTypedPath(Halvern& halvern)
{
    auto& setUp = halvern.SetUpfrm;
    if (setUp.SettingUp) return;
    if (setUp.UnPath.Selected() >= 0) return ChoosePath(setUp); // what was typed is an entry: as good as a choice
    halvern.Tell(Icon::None, "Please use Add button to Add a path.");
    const int last = setUp.UnPath.Count() - 1;
    setUp.UnPath.Preselect(setUp.PathIndex >= 0 && setUp.PathIndex <= last ? setUp.PathIndex : last);
}

void AddPath(Halvern& halvern)
{
    if (Full(halvern, halvern.SetUpfrm.UnPath, "paths")) return;
    halvern.Outside.dialogs.ShowModal(halvern.AddPathFrm);
    if (const auto& path = halvern.AddPathFrm.PathLbl.Caption(); !path.empty()) halvern.SetUpfrm.UnPath.Add(path);
    halvern.AddPathFrm.Unload();
}

void DeletePath(Halvern& halvern)
{
    auto& paths = halvern.SetUpfrm.UnPath;
    if (NothingSelected(halvern, paths, "an Unproto Path", "Delete")) return;
    if (paths.Selected() < BuiltInPaths) return halvern.Tell(Icon::None, "You Cannot Delete this item.");
    paths.Remove(paths.Selected());
    ChoosePath(halvern.SetUpfrm);
}

// --- message groups --------------------------------------------------------------------------------------------------

void AddGroup(Halvern& halvern)
{
    auto& groups = halvern.SetUpfrm.MsgGroupLst;
    if (Full(halvern, groups, "Message Groups")) return;
    const auto group = Asked(halvern, "Enter the Message Group Addition you want to make.");
    if (!group.empty()) groups.Add(UpperCase(group));
}

void ChangeGroup(Halvern& halvern)
{
    auto& groups = halvern.SetUpfrm.MsgGroupLst;
    if (NothingSelected(halvern, groups, "a Message Group", "Change")) return;
    const auto group = Asked(halvern, "Enter the Message Group Change you want to make.");
    if (!group.empty()) groups.Replace(groups.Selected(), UpperCase(group));
}

void DeleteGroup(Halvern& halvern)
{
    auto& groups = halvern.SetUpfrm.MsgGroupLst;
    if (!NothingSelected(halvern, groups, "a Message Group", "Delete")) groups.Remove(groups.Selected());
}

// --- whom the i-gate serves ------------------------------------------------------------------------------------------

void AddBuddy(Halvern& halvern)
{
    AddCaller(halvern, halvern.SetUpfrm.IgateBudsCombo,
              "Enter Your Buddies Call Sign + -SSID if Required. Note Buddies is Case Sensitive.",
              " Is already in your IGATE Buddies list.");
}

void AddWeatherCaller(Halvern& halvern)
{
    AddCaller(halvern, halvern.SetUpfrm.WxMessCombo,
              "Enter Wx Message Call Sign. Note Wx Message Call Sign is Case Sensitive.",
              " Is already in your Wx Message list.");
}

void DeleteCaller(List& callers)
{
    if (callers.Selected() < 0) return;
    callers.Remove(callers.Selected());
    if (callers.Count() > 0) callers.Preselect(callers.Count() - 1);
}

} // namespace halvern
