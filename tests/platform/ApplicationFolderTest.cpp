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

TEST(ApplicationFolderTest, TheUsersFolderIsFilledOnceAndTakesFilesOfTheOperator)
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
    fs::remove(get() + "/dosmaps/usa.map");
    EXPECT_FALSE(fs::exists(get() + "/dosmaps/usa.map")) << "what the operator took away stays away";
}

TEST(ApplicationFolderTest, WithoutAnyDataItIsStillTheUsersFolder)
{
    const TemporaryFolder folder;
    EXPECT_EQ(ApplicationFolder(folder.Path() + "/bin", folder.Path() + "/user"), folder.Path() + "/user/halvern");
}

} // namespace
} // namespace halvern::test
