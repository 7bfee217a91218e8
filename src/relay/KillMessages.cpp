// SPDX-License-Identifier: GPL-3.0-or-later
#include "relay/KillMessages.h"

#include "platform/Text.h"
#include "protocol/OutMsg.h"

namespace halvern {
namespace {

/// What has no number is known by its text alone, whatever blanks stand in front of it in the list and behind it in the
/// queue.
bool IsLineOf(const std::string& ownCall, std::string_view line, std::string_view record)
{
    const auto before = ownCall + ">" + std::string(TrimmedRight(outMsgRow::Destination(record))) + ":";
    if (Holds(record, "{"))
        return line == before + std::string(OutMsgNumber(record)) + "." + std::string(OutMsgText(record));
    return line.starts_with(before + "  ") && Trimmed(line.substr(before.size())) == Trimmed(OutMsgText(record));
}

void RemoveLineOf(Halvern& halvern, std::string_view record)
{
    auto& lines = halvern.MessageFrm.MsgToYouLst;
    for (int i = 0; i < lines.Count(); ++i)
        if (IsLineOf(halvern.Engine.OwnCall, lines.Row(i), record)) return lines.Remove(i);
}

} // namespace

void OpenKillMessages(Halvern& halvern)
{
    if (halvern.MessageFrm.OutMsg.Count() == 0)
        return halvern.Tell(Icon::None, "There are no out going messages at this time");
    halvern.Outside.dialogs.ShowModal(halvern.KillMsgFrm);
}

void LoadKillMessages(Halvern& halvern)
{
    halvern.MessageFrm.Timer1.SetEnabled(false);
    auto& shown = halvern.KillMsgFrm.KillLst;
    const auto& queue = halvern.MessageFrm.OutMsg;
    shown.Clear();
    for (int i = 0; i < queue.Count(); ++i) shown.Add(queue.Row(i));
}

void KillMarkedMessages(Halvern& halvern)
{
    auto& shown = halvern.KillMsgFrm.KillLst;
    auto& queue = halvern.MessageFrm.OutMsg;
    for (int i = shown.Count() - 1; i >= 0; --i) {
        if (!shown.Marked(i)) continue;
        const auto record = shown.Row(i);
        // an ack may have taken it out of the queue while the dialog was up
        if (const int queued = queue.IndexOf(record); queued != NotFound) queue.Remove(queued);
        RemoveLineOf(halvern, record);
        halvern.MessageFrm.Timer1.SetInterval(1);
        shown.Remove(i);
    }
    if (shown.Count() == 0) halvern.KillMsgFrm.Unload();
}

} // namespace halvern
