// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <fstream>

#include "support/StationTest.h"

namespace halvern::test {

/// Why this process has no network of its own in which any port is free, or an empty text.
const std::string& WhyNoNetwork();

/// Lines that can go out on the air: without what only the Internet knows.
inline Strings LinesFrom(const std::string& path)
{
    Strings lines;
    std::ifstream file(path, std::ios::binary);
    for (std::string line; std::getline(file, line);)
        if (!line.empty() && line.front() != '#' && line.find(",q") > line.find(':') && Holds(line, ":"))
            lines.push_back(line);
    return lines;
}

} // namespace halvern::test
