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
    folder.Put("dosmaps/usa.map", "map");
    EXPECT_EQ(ApplicationFolder(folder.Path(), folder.Path() + "/user"), folder.Path());
    EXPECT_FALSE(fs::exists(folder.Path() + "/user"));
}

TEST(ApplicationFolderTest, TheUsersFolderIsFilledAndTakesFilesOfTheOperator)
{
    const TemporaryFolder folder;
    folder.Put("share/halvern/dosmaps/usa.map", "map");
    folder.Put("share/halvern/symbols/table1/045.gif", "house");
    fs::create_directories(folder.Path() + "/bin");
    const auto get = [&] { return ApplicationFolder(folder.Path() + "/bin", folder.Path() + "/user"); };
    ASSERT_EQ(get(), folder.Path() + "/user/halvern");
    DiskFiles files;
    EXPECT_EQ(files.Read(get() + "\\DOSMAPS\\USA.MAP"), "map");
    EXPECT_EQ(files.Read(get() + "/symbols/table1/045.gif"), "house");
    EXPECT_EQ(files.Write(get() + "/dosmaps/own.map", "own"), "");
    EXPECT_FALSE(fs::exists(folder.Path() + "/share/halvern/dosmaps/own.map"));
    folder.Put("share/halvern/dosmaps/new.map", "new");
    EXPECT_EQ(files.Read(get() + "/dosmaps/new.map"), "new") << "a new version brings more";
    EXPECT_EQ(files.Read(get() + "/dosmaps/own.map"), "own");
}

TEST(ApplicationFolderTest, LinksFollowDataThatMoved)
{
    const TemporaryFolder folder;
    folder.Put("here/data/dosmaps/usa.map", "map");
    folder.Put("here/data/APRSDomain.INI", "servers");
    const auto get = [&](const char* place) {
        return ApplicationFolder(folder.Path() + place + "/build/release", folder.Path() + "/user");
    };
    get("/here");
    fs::rename(folder.Path() + "/here", folder.Path() + "/there");
    DiskFiles files;
    EXPECT_FALSE(files.Exists(folder.Path() + "/user/halvern/dosmaps/usa.map"));
    EXPECT_EQ(files.Read(get("/there") + "/dosmaps/usa.map"), "map");
    EXPECT_EQ(files.Read(get("/there") + "/APRSDomain.INI"), "servers");
}

TEST(ApplicationFolderTest, WithoutAnyDataItIsStillTheUsersFolder)
{
    const TemporaryFolder folder;
    EXPECT_EQ(ApplicationFolder(folder.Path() + "/bin", folder.Path() + "/user"), folder.Path() + "/user/halvern");
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
