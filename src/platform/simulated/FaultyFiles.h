// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <limits>
#include <map>
#include <set>
#include <string>

#include "platform/Files.h"

namespace halvern {

/// Files with faults on order, over those of somebody else: a disk that is full, a file cut short, one that can't be
/// read. Paths are given as the program gives them.
class FaultyFiles final : public Files {
public:
    explicit FaultyFiles(Files& under) : under(under) {}

    /// Bytes that the disk still takes. A write that needs more fails whole; a line of an open file is lost.
    void SetRoom(std::size_t bytes) { room = bytes; }
    /// From now on a read gives no more than this many bytes of the file.
    void CutShort(const std::string& path, std::size_t bytes) { lengths[Resolved(path)] = bytes; }
    /// From now on the file is there, and can't be read.
    void MakeUnreadable(const std::string& path) { unreadable.insert(Resolved(path)); }

    bool Exists(const std::string& path) const override { return under.Exists(path); }
    bool FolderExists(const std::string& path) const override { return under.FolderExists(path); }
    std::optional<std::string> Read(const std::string& path) const override;
    std::string Write(const std::string& path, std::string_view bytes) override;
    bool Remove(const std::string& path) override { return under.Remove(path); }
    bool Rename(const std::string& from, const std::string& to) override { return under.Rename(from, to); }
    std::vector<std::string> Names(const std::string& folder) const override { return under.Names(folder); }
    std::vector<std::string> Folders(const std::string& folder) const override { return under.Folders(folder); }
    std::unique_ptr<OutputFile> OpenForOutput(const std::string& path) override;
    std::string Resolved(const std::string& path) const override { return under.Resolved(path); }

private:
    class Output;
    /// Takes so many bytes of the room that is left. @return false when they don't fit
    bool TakeRoom(std::size_t bytes);

    Files& under;
    std::size_t room = std::numeric_limits<std::size_t>::max();
    std::map<std::string, std::size_t> lengths;
    std::set<std::string> unreadable;
};

} // namespace halvern
