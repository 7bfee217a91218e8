// SPDX-License-Identifier: GPL-3.0-or-later
#include "Output.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace halvern::mapmaker {

void WriteWhole(const std::filesystem::path& file, const std::string& bytes)
{
    if (file.has_parent_path()) std::filesystem::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    if (!out) throw std::runtime_error(file.string() + ": can't be written");
}

std::string ReadWhole(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    if (!in) throw std::runtime_error(file.string() + ": can't be read");
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
