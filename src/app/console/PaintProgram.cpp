// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/console/PaintProgram.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <memory>

#include "platform/ApplicationFolder.h"

namespace halvern {
namespace {

/// A file without a name, which goes with its owner.
using Scratch = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

/// Runs a program from one file to another. @return whether it ended well
bool RunFilter(const char* program, std::FILE* from, std::FILE* to)
{
    const auto child = ::fork();
    if (child == 0) {
        ::dup2(::fileno(from), STDIN_FILENO);
        ::dup2(::fileno(to), STDOUT_FILENO);
        ::execl(program, program, nullptr);
        ::_exit(1);
    }
    int status = -1;
    while (child > 0 && ::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return child > 0 && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace

std::string PaintedElsewhere(const std::string& drawing)
{
    const Scratch from(std::tmpfile(), std::fclose), to(std::tmpfile(), std::fclose);
    if (!from || !to || std::fwrite(drawing.data(), 1, drawing.size(), from.get()) != drawing.size()) return {};
    std::rewind(from.get());
    if (!RunFilter(CompanionProgram("halvern-paint").c_str(), from.get(), to.get())) return {};
    std::string picture;
    char bytes[65536];
    std::rewind(to.get());
    while (const auto count = std::fread(bytes, 1, sizeof bytes, to.get())) picture.append(bytes, count);
    return picture;
}

} // namespace halvern
