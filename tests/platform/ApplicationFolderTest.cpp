// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ApplicationFolder.h"

#include <gtest/gtest.h>

#include "support/Station.h"

namespace fs = std::filesystem;

namespace halvern::test {
namespace {

TEST(ApplicationFolderTest, AProgramAmongItsDataStaysThere)
{
    const TemporaryFolder folder;
    EXPECT_EQ(ApplicationFolder(folder.Path() + "/bin", folder.Path() + "/user"), folder.Path() + "/user/halvern");
    folder.Put("dosmaps/usa.map", "map");
    EXPECT_EQ(ApplicationFolder(folder.Path(), folder.Path() + "/user"), folder.Path());
}

TEST(ApplicationFolderTest, TheUsersFolderIsFilledAndTakesFilesOfTheOperator)
{
    const TemporaryFolder folder;
    DiskFiles files;
    folder.Put("share/halvern/dosmaps/usa.map", "map");
    folder.Put("share/halvern/APRSDomain.INI", "servers");
    const auto get = [&](const std::string& program) {
        return ApplicationFolder(folder.Path() + program, folder.Path() + "/user");
    };
    ASSERT_EQ(get("/lib/halvern"), folder.Path() + "/user/halvern");
    EXPECT_EQ(files.Read(get("/bin") + "\\DOSMAPS\\USA.MAP"), "map");
    EXPECT_EQ(files.Write(get("/bin") + "/dosmaps/own.map", "own"), "");
    EXPECT_FALSE(fs::exists(folder.Path() + "/share/halvern/dosmaps/own.map"));
    folder.Put("share/halvern/dosmaps/new.map", "new");
    EXPECT_EQ(files.Read(get("/bin") + "/dosmaps/new.map"), "new") << "a new version brings more";
    fs::rename(folder.Path() + "/share/halvern", folder.Path() + "/data");
    EXPECT_FALSE(files.Exists(folder.Path() + "/user/halvern/dosmaps/usa.map"));
    EXPECT_EQ(files.Read(get("/build/release") + "/dosmaps/usa.map"), "map") << "links follow data that moved";
    EXPECT_EQ(files.Read(get("/build/release") + "/APRSDomain.INI"), "servers");
    EXPECT_EQ(files.Read(get("/build/release") + "/dosmaps/own.map"), "own");
}

TEST(DiskFilesTest, ALogTakesItsLinesAnewWhereItCanBeOpened)
{
    const TemporaryFolder folder;
    folder.Put("Day.log", "what was before");
    DiskFiles files;
    std::string trouble;
    EXPECT_EQ(files.OpenForOutput(folder.Path() + "/no folder/day.log", trouble), nullptr);
    EXPECT_TRUE(files.OpenForOutput(folder.Path() + "\\day.LOG", trouble)->PrintLine("one"));
    EXPECT_EQ(files.Read(folder.Path() + "/Day.log"), "one\r\n");
}

} // namespace
} // namespace halvern::test
