// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace halvern {

/// A search that finds nothing.
inline constexpr int NotFound = -100;

/// The keys of a list's rows, to find the first row of a key without a walk. Rows may share a key.
///
/// A row has a serial that never changes while rows come and go around it; serials rise with the rows, with room
/// between them, so that the place of a row is found by halving.
class KeyIndex {
public:
    void Add(std::string_view key) { Insert(static_cast<int>(entries.size()), key); }
    void Insert(int index, std::string_view key);
    void Replace(int index, std::string_view key);
    void Remove(int index);
    void Clear();
    /// Index of the first row of a key at or behind `from`, or NotFound. With `from` at or before the first such row
    /// the cost does not grow with the rows.
    int Find(std::string_view key, int from = 0) const;
    /// How many rows have this key.
    int Count(std::string_view key) const;

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view key) const { return std::hash<std::string_view>()(key); }
    };
    struct Group {
        std::uint64_t first = 0; ///< serial of its first row
        int count = 0;
    };
    using Groups = std::unordered_map<std::string, Group, Hash, std::equal_to<>>;
    struct Entry {
        std::uint64_t serial;
        Groups::value_type* group; ///< stays where it is while others come and go
    };

    int PlaceOf(std::uint64_t serial) const;
    std::uint64_t SerialFor(int index);
    void Join(Entry& entry, std::string_view key);
    void Part(int index);

    std::vector<Entry> entries;
    Groups groups;
    bool inOrder = true; ///< rows were added at the end alone: each stands where its serial says
};

} // namespace halvern
