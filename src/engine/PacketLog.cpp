// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/PacketLog.h"

namespace halvern {

void FileRaw(Halvern& halvern, const std::string& row)
{
    auto& engine = halvern.Engine;
    halvern.TerminalFrm.RawPacketLst.Add(row);
    if (!engine.LogOpen || !engine.Log || engine.Log->PrintLine(row)) return;
    const auto why = engine.Log->Trouble();
    StopLog(halvern);
    halvern.Tell(Icon::Critical, "The log could not be written: " + why +
                                     ". It is closed, and what was logged before is in it. Start a new log when there "
                                     "is a place for it.");
}

void StopLog(Halvern& halvern)
{
    auto& item = halvern.ConMdiFrm.Log;
    item.SetChecked(false);
    item.SetCaption("&Start Log");
    halvern.Engine.Log.reset();
    halvern.Engine.LogOpen = false;
}

} // namespace halvern
