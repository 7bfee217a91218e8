// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/LineFiles.h"

namespace halvern {

/// Far above every map, and what memory can spare.
inline constexpr std::int64_t LongestFile = 256LL << 20;

/// Files and folders. Names are found whatever their case, `\` and `/` are alike; bytes are never translated.
class Files {
public:
    virtual ~Files() = default;
    /// Whether there is a file that can be opened.
    virtual bool Exists(const std::string& path) const = 0;
    /// Whether there is a folder.
    virtual bool FolderExists(const std::string& path) const = 0;
    /// Only plain files are read, never a device or a pipe.
    /// @return nothing where the file is missing, can't be read, or is longer than LongestFile
    virtual std::optional<std::string> Read(const std::string& path) const = 0;
    /// Writes a new file that then takes the old one's place, so that there is never half a file. Of a link, what it
    /// leads to is written; what is no plain file is refused and stays.
    /// @return what went wrong, or an empty text.
    virtual std::string Write(const std::string& path, std::string_view bytes) = 0;
    virtual bool Remove(const std::string& path) = 0;
    virtual bool Rename(const std::string& from, const std::string& to) = 0;
    /// Names of the files in a folder, sorted; empty where there is no such folder.
    virtual std::vector<std::string> Names(const std::string& folder) const = 0;
    /// Names of the folders in a folder, sorted.
    virtual std::vector<std::string> Folders(const std::string& folder) const = 0;
    /// Opens for output, an existing plain file is overwritten. @return nullptr, and why, where that fails.
    virtual std::unique_ptr<OutputFile> OpenForOutput(const std::string& path, std::string& trouble) = 0;
    /// Opens a text file to be read line by line. @return nullptr, and why, where that fails.
    virtual std::unique_ptr<InputFile> OpenForInput(const std::string& path, std::string& trouble) const = 0;
    /// The path as the system has it, with the case of the names that exist.
    virtual std::string Resolved(const std::string& path) const = 0;
    /// The path as a message to the operator shows it.
    virtual std::string Shown(const std::string& path) const = 0;
};

/// How messages show paths: as the system has them, or as they were put together, the same on every system.
enum class PathForm { System, AsWritten };

/// The machine's own files.
class DiskFiles final : public Files {
public:
    explicit DiskFiles(PathForm shown = PathForm::System) : shown(shown) {}
    bool Exists(const std::string& path) const override;
    bool FolderExists(const std::string& path) const override;
    std::optional<std::string> Read(const std::string& path) const override;
    std::string Write(const std::string& path, std::string_view bytes) override;
    bool Remove(const std::string& path) override;
    bool Rename(const std::string& from, const std::string& to) override;
    std::vector<std::string> Names(const std::string& folder) const override;
    std::vector<std::string> Folders(const std::string& folder) const override;
    std::unique_ptr<OutputFile> OpenForOutput(const std::string& path, std::string& trouble) override;
    std::unique_ptr<InputFile> OpenForInput(const std::string& path, std::string& trouble) const override;
    std::string Resolved(const std::string& path) const override;
    std::string Shown(const std::string& path) const override;

private:
    PathForm shown;
};

} // namespace halvern
