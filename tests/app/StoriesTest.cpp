// SPDX-License-Identifier: GPL-3.0-or-later
// Every tests/stories/NAME.txt is a console script; NAME.expected beside it is what the console answers.
// Two words are the player's own: "include NAME" stands for the lines of parts/NAME.txt, "restart" ends the station and
// starts another one in the same directory.
// HALVERN_REWRITE_STORIES=1 in the environment writes the answers anew; read what changed before you keep it.
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <sstream>

#include "support/Console.h"

namespace fs = std::filesystem;

namespace halvern::test {
namespace {

const fs::path Folder = fs::path(HALVERN_SOURCE) / "tests/stories";

std::string TextOf(const fs::path& file)
{
    return DiskFiles().Read(file).value_or("");
}

std::vector<std::string> StoryNames()
{
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(Folder))
        if (entry.path().extension() == ".txt") names.push_back(entry.path().stem());
    std::sort(names.begin(), names.end());
    return names;
}

void ReplaceAll(std::string& text, const std::string& what, const std::string& with)
{
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
}

/// What differs from run to run gives way to a word: the folder's name, and how long a replay took.
std::string Lasting(std::string answer, const std::string& folder)
{
    static const std::regex duration("^(replayed \\d+ lines in ).* s$");
    ReplaceAll(answer, folder, "DIRECTORY");
    return std::regex_replace(answer, duration, "$1S s");
}

/// Bells in a row become one line, with their number if there is more than one.
std::vector<std::string> WithBellsCounted(const std::vector<std::string>& answers)
{
    std::vector<std::string> counted;
    for (auto answer = answers.begin(); answer != answers.end();) {
        const auto end = std::find_if(answer, answers.end(), [](const std::string& next) { return next != "bell"; });
        if (end - answer > 1) counted.push_back("bell, " + std::to_string(end - answer) + " times");
        if (end - answer == 1) counted.push_back("bell");
        answer = end;
        if (answer != answers.end()) counted.push_back(*answer++);
    }
    return counted;
}

/// The lines of a script with what it includes, one list a run of the station.
using Runs = std::vector<std::vector<std::string>>;
void ReadScript(const fs::path& file, Runs& runs)
{
    ASSERT_TRUE(fs::exists(file)) << file;
    std::istringstream text(TextOf(file));
    for (std::string line; std::getline(text, line);) {
        if (line.starts_with("include "))
            ReadScript(Folder / "parts" / (line.substr(8) + ".txt"), runs);
        else if (line == "restart")
            runs.emplace_back();
        else
            runs.back().push_back(line);
    }
}

/// Puts the folder of recorded traffic into the lines that name it. @return false where there is none
bool PutTrafficIn(Runs& runs)
{
    const auto traffic = TrafficFile("");
    for (auto& run : runs)
        for (auto& line : run) {
            if (line.find("TRAFFIC/") != std::string::npos && traffic.empty()) return false;
            ReplaceAll(line, "TRAFFIC/", traffic);
        }
    return true;
}

struct Stories : ::testing::TestWithParam<std::string> {};

TEST_P(Stories, TheStationAnswersAsItDid)
{
    Runs runs(1);
    ReadScript(Folder / (GetParam() + ".txt"), runs);
    if (!PutTrafficIn(runs)) GTEST_SKIP() << "no recorded traffic on this machine";
    const TemporaryFolder folder;
    LinkData(folder);
    std::string answers;
    for (const auto& run : runs) {
        Station station(folder.Path());
        for (const auto& answer : WithBellsCounted(Play(station, run).answers))
            answers += Lasting(answer, folder.Path()) + "\n";
    }
    const auto expected = Folder / (GetParam() + ".expected");
    if (std::getenv("HALVERN_REWRITE_STORIES") != nullptr) std::ofstream(expected, std::ios::binary) << answers;
    EXPECT_EQ(answers, TextOf(expected));
}

INSTANTIATE_TEST_SUITE_P(All, Stories, ::testing::ValuesIn(StoryNames()), [](const auto& story) {
    auto name = story.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

} // namespace
} // namespace halvern::test
