// SPDX-License-Identifier: GPL-3.0-or-later
#include "MapList.h"

#include "Output.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace halvern::mapmaker {

namespace {

constexpr std::size_t RecordLength = 23;
constexpr std::size_t NameLength = 8;
constexpr std::size_t StartLength = 13;

/// Degrees as digits without a point, the last four of them the fraction.
std::string Degrees(double degrees, int width)
{
    char text[24];
    std::snprintf(text, sizeof text, "%0*ld", width, std::lround(std::abs(degrees) * 10000));
    return text;
}

std::string Record(const ListEntry& entry)
{
    std::string name = entry.name;
    if (name.empty() || name.size() > NameLength)
        throw std::runtime_error("\"" + name + "\": a map's name has 1 to 8 characters");
    name.resize(NameLength, ' ');
    return name + Degrees(entry.lat, 6) + (entry.lat < 0 ? 'S' : 'N') + Degrees(entry.lon, 7) +
           (entry.lon < 0 ? 'E' : 'W');
}

std::string HeadRecord(std::size_t start, std::size_t count)
{
    char text[32];
    std::snprintf(text, sizeof text, "%-13zu%-10zu", start, count);
    return {text, RecordLength};
}

ListEntry Entry(const std::string& record)
{
    ListEntry entry;
    entry.name = record.substr(0, record.find_last_not_of(' ', NameLength - 1) + 1);
    entry.lat = std::atof(record.substr(8, 6).c_str()) / 10000 * (record[14] == 'S' ? -1 : 1);
    entry.lon = std::atof(record.substr(15, 7).c_str()) / 10000 * (record[22] == 'E' ? -1 : 1);
    return entry;
}

} // namespace

std::size_t MapList::RowOf(int step)
{
    const auto found = std::find(ListSteps.begin(), ListSteps.end(), step);
    if (found == ListSteps.end())
        throw std::runtime_error(std::to_string(step) + " isn't a range step; steps are 2048, 1024, 512 ... 2, 1");
    return static_cast<std::size_t>(found - ListSteps.begin());
}

MapList MapList::Read(const std::filesystem::path& file)
{
    const std::string bytes = ReadWhole(file);
    const std::size_t records = bytes.size() / RecordLength;
    if (bytes.size() % RecordLength != 0 || records < ListSteps.size())
        throw std::runtime_error(file.string() + ": isn't a map list");
    const auto record = [&](std::size_t number) { return bytes.substr((number - 1) * RecordLength, RecordLength); };
    MapList list;
    for (std::size_t row = 0; row < ListSteps.size(); ++row) {
        const std::string head = record(row + 1);
        const long start = std::atol(head.substr(0, StartLength).c_str());
        const long count = std::atol(head.substr(StartLength).c_str());
        if (start < 1 || count < 1 || static_cast<std::size_t>(start + count - 1) > records)
            throw std::runtime_error(file.string() + ": record " + std::to_string(row + 1) + " is wrong");
        for (long i = 0; i < count; ++i)
            list.entries_[row].push_back(Entry(record(static_cast<std::size_t>(start + i))));
    }
    return list;
}

void MapList::Write(const std::filesystem::path& file) const
{
    std::string head;
    std::string body;
    std::size_t next = ListSteps.size() + 1;
    for (std::size_t row = 0; row < ListSteps.size(); ++row) {
        if (entries_[row].empty()) throw std::runtime_error("step " + std::to_string(ListSteps[row]) + " has no map");
        head += HeadRecord(next, entries_[row].size());
        next += entries_[row].size();
        for (const ListEntry& entry : entries_[row]) body += Record(entry);
    }
    WriteWhole(file, head + body);
}

void MapList::Add(int step, const ListEntry& entry)
{
    entries_[RowOf(step)].push_back(entry);
}

std::size_t MapList::Remove(const std::string& name)
{
    std::size_t removed = 0;
    for (std::vector<ListEntry>& row : entries_)
        removed += std::erase_if(row, [&](const ListEntry& entry) { return entry.name == name; });
    return removed;
}

} // namespace halvern::mapmaker
