// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace halvern {

/// A file that stays open for output.
class OutputFile {
public:
    virtual ~OutputFile() = default;
    /// Writes a line and its end (CR LF), through to the system. @return false when the file did not take it.
    virtual bool PrintLine(std::string_view line) = 0;
    /// Why the last line was not taken, in the system's words.
    virtual std::string Trouble() const = 0;
    /// Whether a path leads to this file, by whatever name.
    virtual bool Is(const std::string& path) const = 0;
};

/// How far the reading of a file has come.
struct ReadSoFar {
    std::uint64_t lines = 0;
    std::uint64_t bytes = 0, of = 0; ///< of the file as it lies on the disk
};

/// A file of text lines that is read from its beginning to its end; one that gzip made is unpacked on the way.
class InputFile {
public:
    virtual ~InputFile() = default;
    /// The longest line that is handed on; what is longer is no text, and is cut.
    static constexpr std::size_t LongestLine = 65536;
    /// The next line, without its end (LF or CR LF); a last line without an end counts. The view holds until the next
    /// call. @return false at the end, and where the file can't be read on
    virtual bool ReadLine(std::string_view& line) = 0;
    virtual ReadSoFar SoFar() const = 0;
    /// Why the file could not be read to its end, or an empty text.
    virtual std::string Trouble() const = 0;
    virtual bool Is(const std::string& path) const = 0;
};

/// Files of the disk, by the system's own path. Only a plain file is opened: a pipe or a device may never answer.
/// @param trouble  why it can't be opened, in the system's words; nullptr is returned then
std::unique_ptr<OutputFile> OpenLinesForOutput(const std::string& path, std::string& trouble);
std::unique_ptr<InputFile> OpenLinesForInput(const std::string& path, std::string& trouble);

} // namespace halvern
