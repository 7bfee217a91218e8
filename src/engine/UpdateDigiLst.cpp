// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/UpdateDigiLst.h"

#include "protocol/Paths.h"
#include "state/Rows.h"

namespace halvern {

void UpdateDigiLst(Halvern& halvern, std::string_view call, std::string_view path)
{
    auto& store = halvern.DigiFrm.DigiLst;
    const int index = store.Find(call);
    if (index == NotFound) return store.Add(std::string(call) + " " + std::string(path));
    const auto stored = stationRow::Report(store.Row(index));
    if (stored == path) return;
    if (PathHopCount(path) < PathHopCount(stored)) store.Replace(index, std::string(call) + " " + std::string(path));
}

} // namespace halvern
