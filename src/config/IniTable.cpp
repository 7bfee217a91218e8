// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/IniTable.h"

#include <algorithm>

#include "platform/Text.h"

namespace halvern {
namespace {

constexpr int RoomForEntries = 21; ///< what one list of the file may hold

void WriteList(IniWriter& writer, const IniRow& row)
{
    const int count = std::clamp(row.list->Count() - row.builtIn, 0, RoomForEntries);
    writer.Put(LineKind::Integer, std::to_string(count));
    for (int i = 0; i < count; ++i) writer.Put(row.kind, row.list->Row(row.builtIn + i));
}

std::vector<std::string> ReadList(IniReader& reader, const IniRow& row)
{
    const int count = reader.NextInteger("number of " + row.name + "s", 0, RoomForEntries);
    std::vector<std::string> entries;
    for (int i = 0; i < count; ++i) entries.push_back(reader.Next(row.kind, row.name));
    return entries;
}

std::string ReadValue(IniReader& reader, const IniRow& row)
{
    if (row.kind == LineKind::Integer) return std::to_string(reader.NextInteger(row.name, row.least, row.most));
    return reader.Next(row.kind, row.name);
}

void ApplyList(const IniRow& row, const std::vector<std::string>& entries)
{
    while (row.list->Count() > row.builtIn) row.list->Remove(row.list->Count() - 1);
    for (const auto& entry : entries) row.list->Add(entry);
}

} // namespace

std::string WriteIni(const IniTable& table)
{
    IniWriter writer;
    std::string before;
    for (const auto& row : table) {
        if (row.list != nullptr) {
            WriteList(writer, row);
        } else if (!row.onlyAfterTrue || before == "True") {
            before = row.get();
            writer.Put(row.kind, before);
        }
    }
    return writer.Bytes();
}

IniValues ReadIni(const IniTable& table, std::string_view bytes)
{
    IniReader reader(bytes);
    IniValues values;
    for (const auto& row : table) {
        if (row.list != nullptr) {
            values.push_back(ReadList(reader, row));
            const auto entries = row.builtIn + static_cast<int>(values.back().size());
            if (row.indexBefore && LeadingNumber(values.end()[-2].front()) >= entries)
                throw IniFault(reader.Line() - entries + row.builtIn - 1, "index of the " + row.name + "s");
        } else if (!row.onlyAfterTrue || values.back().front() == "True") {
            values.push_back({ReadValue(reader, row)});
        } else {
            values.emplace_back();
        }
    }
    return values;
}

void ApplyIni(const IniTable& table, const IniValues& values, bool early)
{
    for (std::size_t i = 0; i < table.size(); ++i)
        if (table[i].early == early && table[i].list != nullptr) ApplyList(table[i], values[i]);
    for (std::size_t i = 0; i < table.size(); ++i)
        if (table[i].early == early && table[i].list == nullptr && !values[i].empty()) table[i].set(values[i].front());
}

} // namespace halvern
