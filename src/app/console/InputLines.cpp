// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/console/InputLines.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <utility>

namespace halvern {

std::optional<std::string> InputLines::Next(const std::function<bool()>& stop, const std::function<void()>& wait)
{
    std::fflush(stdout);
    while (lines.empty() && !ended && !stop()) wait();
    if (lines.empty() || stop()) return {};
    auto line = std::move(lines.front());
    lines.pop_front();
    return line;
}

bool InputLines::Read()
{
    char bytes[65536];
    const auto count = ::read(STDIN_FILENO, bytes, sizeof bytes);
    if (count < 0 && (errno == EINTR || errno == EAGAIN)) return true;
    if (count <= 0) {
        ended = true;
        if (!unfinished.empty()) lines.push_back(std::exchange(unfinished, {}));
        return false;
    }
    unfinished.append(bytes, static_cast<std::size_t>(count));
    std::size_t start = 0;
    for (auto end = unfinished.find('\n'); end != std::string::npos; end = unfinished.find('\n', start)) {
        lines.push_back(unfinished.substr(start, end - start));
        start = end + 1;
    }
    unfinished.erase(0, start);
    return true;
}

void InputLines::Stop()
{
    lines.clear();
    ended = stopped = true;
}

} // namespace halvern
