// SPDX-License-Identifier: GPL-3.0-or-later
#include "relay/MailPaths.h"

#include "platform/Text.h"
#include "relay/Messages.h"

namespace halvern {
namespace {

constexpr int MostPaths = 20;
constexpr int BuiltIn = 2;

/// Tells why the selected entry can't be changed or deleted. @return whether it can.
bool MayTouch(Halvern& halvern, const char* nothingSelected, const char* builtIn)
{
    const int selected = halvern.MessageFrm.MailUnPath.Selected();
    if (selected >= BuiltIn) return true;
    halvern.Tell(Icon::None, selected < 0 ? nothingSelected : builtIn);
    return false;
}

} // namespace

void AddMailPath(Halvern& halvern)
{
    auto& paths = halvern.MessageFrm.MailUnPath;
    if (paths.Count() == MostPaths)
        return halvern.Tell(Icon::None, "You may not have more than 20 mail paths total.\r\nYou will have to delete "
                                        "one path to make room for the new path.");
    const auto path = UpperCase(
        halvern.Outside.dialogs
            .Input("Enter the Mail Path Addition you want to make. Note to save this addition you must go to the "
                   "setup/save tab and click on the save tab.",
                   "Halvern Add Mail Path")
            .value_or(""));
    if (!path.empty() && !RefusedInternetPath(halvern, path)) paths.Add(path);
}

void ChangeMailPath(Halvern& halvern)
{
    if (!MayTouch(halvern, "You must click on an item before clicking on the Change menu item.",
                  "You cannot Change this item."))
        return;
    auto& paths = halvern.MessageFrm.MailUnPath;
    const int selected = paths.Selected();
    const auto path = UpperCase(
        halvern.Outside.dialogs.Input("Enter the Mail Path Change you want to make.", ProgramTitle, paths.Row(selected))
            .value_or(""));
    if (!path.empty()) paths.Replace(selected, path);
}

void DeleteMailPath(Halvern& halvern)
{
    if (!MayTouch(halvern, "You must click on a Mail Path item before clicking on the Delete menu item.",
                  "You cannot Delete this item."))
        return;
    halvern.MessageFrm.MailUnPath.Remove(halvern.MessageFrm.MailUnPath.Selected());
}

} // namespace halvern
