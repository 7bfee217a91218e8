// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <vector>

namespace halvern::mapmaker {

/// The range steps that the list knows, in nautical miles and in the order of its head.
inline constexpr std::array<int, 12> ListSteps{2048, 1024, 512, 256, 128, 64, 32, 16, 8, 4, 2, 1};

/// One map at one step: its file's name without extension and its centre, north and west positive.
struct ListEntry {
    std::string name;
    double lat = 0;
    double lon = 0;
};

/// The list file by which a map is chosen: 23-byte records without line ends, twelve of them the head.
class MapList {
public:
    /// Throws std::runtime_error with the file's name when its records don't make sense.
    static MapList Read(const std::filesystem::path& file);

    /// Throws std::runtime_error when a name has more than 8 characters or a step has no entry.
    void Write(const std::filesystem::path& file) const;

    /// Adds an entry to a step of ListSteps. Several entries may share a map. Throws std::runtime_error for a range
    /// that isn't a step.
    void Add(int step, const ListEntry& entry);

    /// Takes all entries of a map out of the list; returns how many there were.
    std::size_t Remove(const std::string& name);

    const std::vector<ListEntry>& Entries(int step) const { return entries_.at(RowOf(step)); }

private:
    static std::size_t RowOf(int step);

    std::array<std::vector<ListEntry>, ListSteps.size()> entries_;
};

} // namespace halvern::mapmaker
