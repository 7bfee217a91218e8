// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "app/console/ConsoleSession.h"
#include "support/Station.h"

namespace halvern::test {

/// Fills a folder with links to the project's data: an application directory to write into.
void LinkData(const TemporaryFolder& folder);

/// What a console session answered.
struct Played {
    std::vector<std::string> answers;
    int status = 0;
};

/// Carries out lines on a station as it stands: it is neither started nor ended.
Played CarryOut(Station& station, const std::vector<std::string>& lines);
/// A whole session, from the start of the station to the end of the input.
Played Play(Station& station, const std::vector<std::string>& lines);

} // namespace halvern::test
