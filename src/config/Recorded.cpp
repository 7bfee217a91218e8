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

/// Of the settings that bear all these marks.
std::vector<SettingValue> PresentValues(Halvern& halvern, unsigned marks)
{
    std::vector<SettingValue> values;
    for (const auto& setting : SettingsTable(halvern))
        if ((setting.marks & marks) == marks) values.push_back(setting.get());
    return values;
}

} // namespace

void RecordSetUp(Halvern& halvern)
{
    halvern.SetUpfrm.Recorded = PresentValues(halvern, Cancelled);
}

void RecordSaved(Halvern& halvern)
{
    halvern.SetUpfrm.Saved = PresentValues(halvern, Cancelled | InFile);
}

bool SettingsSaved(Halvern& halvern)
{
    return halvern.SetUpfrm.Saved == PresentValues(halvern, Cancelled | InFile);
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
