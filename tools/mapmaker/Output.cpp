// SPDX-License-Identifier: GPL-3.0-or-later
#include "Output.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

namespace halvern::mapmaker {

namespace {

/// The file that is being written, for the signal handler; empty when there is none.
std::array<char, 4096> unfinished{};

/// Takes the half-written file away and lets the signal end the program.
void EndCleanly(int signal)
{
    if (unfinished[0] != 0) unlink(unfinished.data());
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

[[noreturn]] void CantWrite(const std::filesystem::path& file, int error)
{
    throw std::runtime_error(file.string() + ": can't be written: " + std::generic_category().message(error));
}

/// Writes a file; on failure takes it away and returns the error's number.
int TryWrite(const std::filesystem::path& file, const std::string& bytes)
{
    if (file.string().size() >= unfinished.size()) return ENAMETOOLONG;
    std::strcpy(unfinished.data(), file.c_str());
    int error = 0;
    if (std::FILE* out = std::fopen(file.c_str(), "wb")) {
        if (std::fwrite(bytes.data(), 1, bytes.size(), out) != bytes.size()) error = errno;
        if (std::fclose(out) != 0 && error == 0) error = errno;
        if (error != 0) unlink(file.c_str());
    } else {
        error = errno;
    }
    unfinished[0] = 0;
    return error;
}

} // namespace

void LeaveNoHalfFiles()
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) std::signal(signal, EndCleanly);
    std::signal(SIGXFSZ, SIG_IGN); // a file that may not grow so large is an error like a full disk
}

void WriteWhole(const std::filesystem::path& file, const std::string& bytes)
{
    std::error_code error;
    if (file.has_parent_path()) std::filesystem::create_directories(file.parent_path(), error);
    if (error) CantWrite(file, error.value());
    std::filesystem::path fresh = file;
    fresh += ".new";
    if (const int number = TryWrite(fresh, bytes); number != 0) CantWrite(file, number);
    std::filesystem::rename(fresh, file, error);
    if (!error) return;
    unlink(fresh.c_str());
    CantWrite(file, error.value());
}

std::string ReadWhole(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    if (!in || std::filesystem::is_directory(file)) throw std::runtime_error(file.string() + ": can't be read");
    return {std::istreambuf_iterator<char>(in), {}};
}

Progress::Progress(std::string task, std::size_t steps)
    : task_(std::move(task)), steps_(std::max<std::size_t>(steps, 1)), visible_(isatty(STDERR_FILENO) == 1)
{
    Show();
}

Progress::~Progress()
{
    if (visible_) std::fputc('\n', stderr);
}

void Progress::Step()
{
    const std::size_t before = done_ * 100 / steps_;
    if (done_ < steps_) ++done_;
    if (done_ * 100 / steps_ != before) Show();
}

void Progress::Show() const
{
    if (!visible_) return;
    constexpr std::size_t Width = 40;
    const std::string bar(done_ * Width / steps_, '#');
    std::fprintf(stderr, "\r%-24s [%-40s] %3zu%%", task_.c_str(), bar.c_str(), done_ * 100 / steps_);
    std::fflush(stderr);
}

} // namespace halvern::mapmaker
