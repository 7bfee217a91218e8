// SPDX-License-Identifier: GPL-3.0-or-later
#include <functional>

#include "config/IniTable.h"

/// What the setup form remembers of its values while it is up.
namespace halvern {
namespace {

/// Walks what Cancel puts back, with what was recorded of it; nothing where nothing was recorded yet.
void ForRecorded(Halvern& halvern, const std::function<void(const Setting&, const SettingValue&)>& visit)
{
    auto recorded = halvern.SetUpfrm.Recorded.cbegin();
    for (const auto& setting : SettingsTable(halvern))
        if (setting.Has(Cancelled) && recorded != halvern.SetUpfrm.Recorded.cend()) visit(setting, *recorded++);
}

} // namespace

void RecordSetUp(Halvern& halvern)
{
    auto& recorded = halvern.SetUpfrm.Recorded;
    recorded.clear();
    for (const auto& setting : SettingsTable(halvern))
        if (setting.Has(Cancelled)) recorded.push_back(setting.get());
}

bool BeaconDataChanged(Halvern& halvern)
{
    bool changed = false;
    ForRecorded(halvern, [&](const Setting& setting, const SettingValue& before) {
        changed |= setting.Has(Beacon) && setting.get() != before;
    });
    return changed;
}

void RestoreSetUp(Halvern& halvern)
{
    halvern.SetUpfrm.SettingUp = true;
    ForRecorded(halvern, [](const Setting& setting, const SettingValue& before) { setting.set(before); });
    halvern.SetUpfrm.SettingUp = false;
}

} // namespace halvern
