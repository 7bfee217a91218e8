// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <limits>
#include <memory>
#include <string>
#include <utility>

#include "platform/Files.h"
#include "platform/Text.h"

namespace halvern {

/// Files on a disk that gets full, over those of somebody else.
class FaultyFiles final : public Files {
public:
    /// @param under the files that are asked where no fault is set.
    explicit FaultyFiles(Files& under) : under(under) {}

    /// Bytes that the disk still takes. A write that needs more fails whole.
    void SetRoom(std::size_t bytes) { room = bytes; }

    bool Exists(const std::string& path) const override { return under.Exists(path); }
    bool FolderExists(const std::string& path) const override { return under.FolderExists(path); }
    std::optional<std::string> Read(const std::string& path) const override { return under.Read(path); }
    std::string Write(const std::string& path, std::string_view bytes) override
    {
        return TakeRoom(bytes.size()) ? under.Write(path, bytes) : Full;
    }
    bool Remove(const std::string& path) override { return under.Remove(path); }
    bool Rename(const std::string& from, const std::string& to) override { return under.Rename(from, to); }
    std::vector<std::string> Names(const std::string& folder) const override { return under.Names(folder); }
    std::vector<std::string> Folders(const std::string& folder) const override { return under.Folders(folder); }
    std::unique_ptr<OutputFile> OpenForOutput(const std::string& path, std::string& trouble) override
    {
        auto file = under.OpenForOutput(path, trouble);
        return file ? std::make_unique<Output>(*this, std::move(file)) : nullptr;
    }
    std::unique_ptr<InputFile> OpenForInput(const std::string& path, std::string& trouble) const override
    {
        return under.OpenForInput(path, trouble);
    }
    std::string Resolved(const std::string& path) const override { return under.Resolved(path); }
    std::string Shown(const std::string& path) const override { return under.Shown(path); }

private:
    static constexpr const char* Full = "No space left on device";

    /// A row that needs more room than there is fails whole.
    struct Output final : OutputFile {
        Output(FaultyFiles& disk, std::unique_ptr<OutputFile> file) : disk(disk), file(std::move(file)) {}
        bool PrintLine(std::string_view line) override
        {
            full = !disk.TakeRoom(line.size() + CrLf.size());
            return !full && file->PrintLine(line);
        }
        std::string Trouble() const override { return full ? Full : file->Trouble(); }
        bool Is(const std::string& path) const override { return file->Is(path); }

        FaultyFiles& disk;
        std::unique_ptr<OutputFile> file;
        bool full = false;
    };

    bool TakeRoom(std::size_t bytes)
    {
        if (bytes > room) return false;
        room -= bytes;
        return true;
    }

    Files& under;
    std::size_t room = std::numeric_limits<std::size_t>::max();
};

} // namespace halvern
