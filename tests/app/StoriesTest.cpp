// SPDX-License-Identifier: GPL-3.0-or-later
// Every tests/stories/NAME.txt is a console script; NAME.expected beside it is what the console answers.
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
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
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
    return std::regex_replace(answer, duration, "$1 S s");
}

struct Stories : ::testing::TestWithParam<std::string> {};

TEST_P(Stories, TheStationAnswersAsItDid)
{
    auto script = TextOf(Folder / (GetParam() + ".txt"));
    if (script.find("TRAFFIC/") != std::string::npos) {
        const auto traffic = TrafficFile("");
        if (traffic.empty()) GTEST_SKIP() << "no recorded traffic on this machine";
        ReplaceAll(script, "TRAFFIC/", traffic);
    }
    const TemporaryFolder folder;
    LinkData(folder);
    Station station(folder.Path());
    std::vector<std::string> lines;
    std::istringstream text(script);
    for (std::string line; std::getline(text, line);) lines.push_back(line);

    std::string answers;
    for (const auto& answer : Play(station, lines).answers) answers += Lasting(answer, folder.Path()) + "\n";

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
