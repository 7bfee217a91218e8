// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

namespace halvern::mapmaker {

/// Writes a file anew, its folder too when there is none. Throws std::runtime_error with the file's name on failure.
void WriteWhole(const std::filesystem::path& file, const std::string& bytes);

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
