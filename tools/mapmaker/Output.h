// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

namespace halvern::mapmaker {

/// Writes a file anew, its folder too when there is none: a new file takes the old one's place, so that there is never
/// half a file, and a link to a file that others use gives way to a file of its own. Throws std::runtime_error with the
/// file's name and the reason on failure.
void WriteWhole(const std::filesystem::path& file, const std::string& bytes);

/// From now on the signals that end the program take a half-written file away before.
void LeaveNoHalfFiles();

/// The bytes of a file. Throws std::runtime_error with the file's name when it can't be read.
std::string ReadWhole(const std::filesystem::path& file);

/// A bar on the terminal that shows how far a long task is; silent when the output is no terminal.
class Progress {
public:
    Progress(std::string task, std::size_t steps);
    ~Progress();

    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// One more step is done.
    void Step();

private:
    void Show() const;

    std::string task_;
    std::size_t steps_;
    std::size_t done_ = 0;
    bool visible_;
};

} // namespace halvern::mapmaker
