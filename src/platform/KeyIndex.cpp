// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/KeyIndex.h"

#include <tsl/robin_map.h>

#include <algorithm>
#include <functional>

namespace halvern {
namespace {

constexpr std::uint64_t Room = 1u << 20; ///< serials left free between two rows that were added one behind the other

struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view key) const { return std::hash<std::string_view>()(key); }
};

struct Group {
    std::uint64_t first = 0;
    int count = 0;
};

} // namespace

/// Open addressing: a search touches one place of memory or two, where a chained table would touch four.
struct KeyIndex::Groups
    : tsl::robin_map<std::string, Group, Hash, std::equal_to<>, std::allocator<std::pair<std::string, Group>>, true> {};

KeyIndex::KeyIndex() : groups(std::make_unique<Groups>()) {}
KeyIndex::~KeyIndex() = default;

/// Without removals no halving is needed.
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
        for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) // the first row has the last word
            groups->at(entry->key).first = entry->serial = serial -= Room;
    }
    return before() + (entries[index].serial - before()) / 2;
}

void KeyIndex::Join(const Entry& entry)
{
    auto& [first, count] = (*groups)[entry.key];
    if (count++ == 0 || entry.serial < first) first = entry.serial;
}

/// Takes a row out of its group; the next row of the group becomes its first.
void KeyIndex::Part(int index)
{
    const auto& leaving = entries[index];
    const auto group = groups->find(leaving.key);
    auto& [first, count] = group.value();
    if (--count == 0) {
        groups->erase(group);
    } else if (first == leaving.serial) {
        first = std::find_if(entries.begin() + index + 1, entries.end(), [&](const Entry& entry) {
                    return entry.key == leaving.key;
                })->serial;
    }
}

void KeyIndex::Insert(int index, std::string_view key)
{
    askedPlace = NotFound;
    inOrder = inOrder && index == static_cast<int>(entries.size());
    Join(*entries.insert(entries.begin() + index, Entry{SerialFor(index), std::string(key)}));
}

void KeyIndex::Replace(int index, std::string_view key)
{
    if (entries[index].key == key) return;
    askedPlace = NotFound;
    Part(index);
    entries[index].key = key;
    Join(entries[index]);
}

void KeyIndex::Remove(int index)
{
    askedPlace = NotFound;
    inOrder = inOrder && index + 1 == static_cast<int>(entries.size());
    Part(index);
    entries.erase(entries.begin() + index);
}

void KeyIndex::Clear()
{
    entries.clear();
    groups->clear();
    askedPlace = NotFound;
    inOrder = true;
}

int KeyIndex::FirstOf(std::string_view key) const
{
    if (askedPlace != NotFound && askedKey == key) return askedPlace;
    const auto group = groups->find(key);
    if (group == groups->end()) return NotFound;
    askedKey = key;
    return askedPlace = PlaceOf(group->second.first);
}

int KeyIndex::Find(std::string_view key, int from) const
{
    const int first = FirstOf(key);
    if (first >= from || first == NotFound) return first;
    for (auto index = static_cast<std::size_t>(from); index < entries.size(); ++index)
        if (entries[index].key == key) return static_cast<int>(index);
    return NotFound;
}

int KeyIndex::Count(std::string_view key) const
{
    const auto group = groups->find(key);
    return group == groups->end() ? 0 : group->second.count;
}

} // namespace halvern
