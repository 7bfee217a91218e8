// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/KeyIndex.h"

#include <algorithm>

namespace halvern {
namespace {

constexpr std::uint64_t Room = 1u << 20; ///< serials left free between two rows that were added one behind the other

} // namespace

int KeyIndex::PlaceOf(std::uint64_t serial) const
{
    if (inOrder) return static_cast<int>(serial / Room - 1);
    const auto place = std::ranges::lower_bound(entries, serial, {}, &Entry::serial);
    return static_cast<int>(place - entries.begin());
}

/// A serial between those of its neighbours; where none is left, all rows get new ones first.
std::uint64_t KeyIndex::SerialFor(int index)
{
    const auto before = [&] { return index == 0 ? 0 : entries[index - 1].serial; };
    if (index == static_cast<int>(entries.size())) return before() + Room;
    if (entries[index].serial - before() < 2) {
        std::uint64_t serial = (entries.size() + 1) * Room;
        for (auto entry = entries.rbegin(); entry != entries.rend();
             ++entry) // from behind: the first row has the last word
            entry->group->second.first = entry->serial = serial -= Room;
    }
    return before() + (entries[index].serial - before()) / 2;
}

void KeyIndex::Join(Entry& entry, std::string_view key)
{
    auto group = groups.find(key);
    if (group == groups.end()) group = groups.try_emplace(std::string(key)).first;
    entry.group = &*group;
    auto& [first, count] = group->second;
    if (count++ == 0 || entry.serial < first) first = entry.serial;
}

/// Takes a row out of its group; the next row of the group becomes its first.
void KeyIndex::Part(int index)
{
    auto* const group = entries[index].group;
    auto& [first, count] = group->second;
    if (--count == 0) {
        groups.erase(groups.find(group->first));
        return;
    }
    if (first != entries[index].serial) return;
    const auto next = std::find_if(entries.begin() + index + 1, entries.end(),
                                   [&](const Entry& entry) { return entry.group == group; });
    first = next->serial;
}

void KeyIndex::Insert(int index, std::string_view key)
{
    inOrder = inOrder && index == static_cast<int>(entries.size());
    const auto entry = entries.insert(entries.begin() + index, Entry{SerialFor(index), nullptr});
    Join(*entry, key);
}

void KeyIndex::Replace(int index, std::string_view key)
{
    if (entries[index].group->first == key) return;
    Part(index);
    Join(entries[index], key);
}

void KeyIndex::Remove(int index)
{
    inOrder = inOrder && index + 1 == static_cast<int>(entries.size());
    Part(index);
    entries.erase(entries.begin() + index);
}

void KeyIndex::Clear()
{
    entries.clear();
    groups.clear();
    inOrder = true;
}

int KeyIndex::Find(std::string_view key, int from) const
{
    const auto group = groups.find(key);
    if (group == groups.end()) return NotFound;
    const int first = PlaceOf(group->second.first);
    if (first >= from) return first;
    for (auto index = static_cast<std::size_t>(from); index < entries.size(); ++index)
        if (entries[index].group == &*group) return static_cast<int>(index);
    return NotFound;
}

int KeyIndex::Count(std::string_view key) const
{
    const auto group = groups.find(key);
    return group == groups.end() ? 0 : group->second.count;
}

} // namespace halvern
