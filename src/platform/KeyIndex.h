// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
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
    KeyIndex();
    ~KeyIndex();
    /// Follow the list: a row has come at the end or before an index, has another key, is gone; all are gone.
    void Add(std::string_view key) { Insert(static_cast<int>(entries.size()), key); }
    void Insert(int index, std::string_view key);
    void Replace(int index, std::string_view key);
    void Remove(int index);
    void Clear();
    /// Index of the first row of a key at or behind `from`, or NotFound. With `from` at or before the first such row
    /// the cost does not grow with the rows. The last answer is kept: a packet asks for its station's row several
    /// times.
    int Find(std::string_view key, int from = 0) const;
    /// How many rows have this key.
    int Count(std::string_view key) const;

private:
    struct Groups; ///< by its key: the serial of its first row, and how many it has
    struct Entry {
        std::uint64_t serial;
        std::string key;
    };

    int PlaceOf(std::uint64_t serial) const;
    std::uint64_t SerialFor(int index);
    void Join(const Entry& entry);
    void Part(int index);

    int FirstOf(std::string_view key) const;

    std::vector<Entry> entries;
    std::unique_ptr<Groups> groups;
    mutable std::string askedKey;
    mutable int askedPlace = NotFound; ///< first row of `askedKey`, as long as no row has come, gone or changed its key
    bool inOrder = true;               ///< rows were added at the end alone: each stands where its serial says
};

} // namespace halvern
