// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/IniTable.h"

#include <algorithm>

#include "platform/Text.h"

namespace halvern {
namespace {

constexpr int RoomForEntries = 21; ///< what one list of the file may hold

void WriteList(IniWriter& writer, const Setting& setting)
{
    const int count = std::clamp(setting.list->Count() - setting.builtIn, 0, RoomForEntries);
    writer.Put(LineKind::Integer, count);
    for (int i = 0; i < count; ++i) writer.Put(setting.kind, setting.list->Row(setting.builtIn + i));
}

std::vector<std::string> ReadList(IniReader& reader, const Setting& setting)
{
    const int count = reader.NextInteger("number of " + setting.name + "s", 0, RoomForEntries);
    std::vector<std::string> entries;
    for (int i = 0; i < count; ++i) entries.push_back(reader.NextText(setting.kind, setting.name));
    return entries;
}

SettingValue ReadValue(IniReader& reader, const Setting& setting)
{
    if (setting.kind == LineKind::Integer) return reader.NextInteger(setting.name, setting.least, setting.most);
    return reader.Next(setting.kind, setting.name);
}

} // namespace

std::string WriteIni(const SettingTable& table)
{
    IniWriter writer;
    SettingValue before;
    for (const auto& setting : table) {
        if (!setting.Has(InFile)) continue;
        if (setting.list != nullptr) {
            WriteList(writer, setting);
        } else if (!setting.Has(AfterTrue) || before == SettingValue(true)) {
            before = setting.get();
            writer.Put(setting.kind, before);
        }
    }
    return writer.Bytes();
}

std::vector<SettingValue> ReadIni(const SettingTable& table, std::string_view bytes)
{
    IniReader reader(bytes);
    std::vector<SettingValue> values;
    for (const auto& setting : table) {
        SettingValue value;
        if (setting.Has(InFile) && setting.list != nullptr) {
            const auto entries = ReadList(reader, setting);
            const int count = setting.builtIn + static_cast<int>(entries.size());
            if (setting.builtIn > 0 && std::get<int>(values.back()) >= count)
                throw IniFault(reader.Line() - static_cast<int>(entries.size()) - 1,
                               "index of the " + setting.name + "s");
            value = entries;
        } else if (setting.Has(InFile) && (!setting.Has(AfterTrue) || values.back() == SettingValue(true))) {
            value = ReadValue(reader, setting);
        }
        values.push_back(std::move(value));
    }
    return values;
}

void ApplyIni(const SettingTable& table, const std::vector<SettingValue>& values, bool early)
{
    for (const bool lists : {true, false})
        for (std::size_t i = 0; i < table.size(); ++i)
            if (table[i].Has(Early) == early && (table[i].list != nullptr) == lists && values[i].index() != 0)
                table[i].set(values[i]);
}

} // namespace halvern
