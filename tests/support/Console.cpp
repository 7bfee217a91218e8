// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Console.h"

#include <tuple>

namespace fs = std::filesystem;

namespace halvern::test {

void LinkData(const TemporaryFolder& folder)
{
    for (const auto& entry : fs::directory_iterator(DataFolder()))
        fs::create_symlink(entry.path(), fs::path(folder.Path()) / entry.path().filename());
}

static Played WithSession(Station& station, const std::vector<std::string>& lines,
                          const std::function<int(ConsoleSession&)>& run)
{
    Played played;
    std::size_t next = 0;
    ConsoleWorld world{station.halvern, station.dialogs, station.map, station.picture, &station.time, &station.ports};
    world.Print = [&](const std::string& line) { played.answers.push_back(line); };
    world.NextLine = [&](const std::function<bool()>&) -> std::optional<std::string> {
        if (next == lines.size()) return {};
        return lines[next++];
    };
    auto& dialogs = station.dialogs;
    const auto slots = std::make_tuple(dialogs.Say, dialogs.AskForAnswer, dialogs.RunModal, dialogs.PassTime);
    ConsoleSession session(std::move(world));
    played.status = run(session);
    std::tie(dialogs.Say, dialogs.AskForAnswer, dialogs.RunModal, dialogs.PassTime) = slots; // the session ends here
    return played;
}

Played CarryOut(Station& station, const std::vector<std::string>& lines)
{
    return WithSession(station, lines,
                       [](ConsoleSession& session) { return session.CarryOutLines([] { return false; }); });
}

Played Play(Station& station, const std::vector<std::string>& lines)
{
    return WithSession(station, lines, [](ConsoleSession& session) { return session.Run(); });
}

} // namespace halvern::test
