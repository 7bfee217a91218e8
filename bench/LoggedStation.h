// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <fstream>
#include <string>
#include <vector>

#include "support/Station.h"

namespace halvern::test {

/// The lines of all recorded traffic; none where there is none on this machine.
inline std::vector<std::string> RecordedLines()
{
    std::vector<std::string> lines;
    for (const auto* name : {"feed-2021.tnc2", "feed-2021-earlier.tnc2", "weather-2021.tnc2", "feed-2011.tnc2",
                             "isles-2011.tnc2", "tape-2005.tnc2", "messages-2014.tnc2", "truck-2021.tnc2"}) {
        std::ifstream in(TrafficFile(name), std::ios::binary);
        for (std::string line; std::getline(in, line);) lines.push_back(line);
    }
    return lines;
}

/// A folder with the project's data and a log that repeats the recorded traffic.
struct LoggedFolder {
    explicit LoggedFolder(std::size_t count) : lines(RecordedLines())
    {
        for (const auto* name : {"symbols", "dosmaps", "maplist"})
            std::filesystem::create_directory_symlink(DataFolder() + "/" + name, folder.Path() + "/" + name);
        std::ofstream log(Log(), std::ios::binary);
        for (std::size_t i = 0; i < count && !lines.empty(); ++i) log << lines[i % lines.size()] << "\r\n";
    }
    std::string Log() const { return folder.Path() + "/long.log"; }

    TemporaryFolder folder;
    std::vector<std::string> lines;
};

/// A station over it that has heard all of the traffic once. It says nothing.
struct LoggedStation : LoggedFolder {
    explicit LoggedStation(std::size_t count, Dialogs* onScreen = nullptr)
        : LoggedFolder(count), station(folder.Path(), onScreen)
    {
        station.dialogs.Say = nullptr;
        station.SetUp();
        for (const auto& line : lines) station.Hear(line, "TCPIP");
    }
    /// Plays the whole log, from the click until the way back is offered.
    void Import()
    {
        station.dialogs.Answers.push_back({Log()});
        station.halvern.ConMdiFrm.ImportLog.Click();
    }
    void Restore() { station.halvern.ConMdiFrm.RestoreMenu.Click(); }

    Station station;
};

} // namespace halvern::test
