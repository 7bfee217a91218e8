// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/simulated/FaultyFiles.h"

#include <gtest/gtest.h>

#include "support/Station.h"

namespace halvern::test {
namespace {

TEST(FaultyFilesTest, AFullDiskKeepsTheOldFileAndLosesTheLinesThatDoNotFit)
{
    const TemporaryFolder folder;
    DiskFiles disk;
    FaultyFiles files(disk);
    const auto path = folder.Path() + "/a.txt";
    EXPECT_EQ(files.Write(path, "old"), "");
    const auto log = files.OpenForOutput(folder.Path() + "/b.log");
    files.SetRoom(6);
    EXPECT_NE(files.Write(path, "too long"), "");
    EXPECT_EQ(files.Read(path), "old");
    EXPECT_TRUE(log->PrintLine("four"));
    EXPECT_FALSE(log->PrintLine(""));
    EXPECT_EQ(files.Read(folder.Path() + "/b.log"), "four\r\n");
}

TEST(FaultyFilesTest, AFileIsCutShortOrCannotBeReadWhateverTheCaseOfItsName)
{
    const TemporaryFolder folder;
    folder.Put("Maps/Usa.map", "0123456789");
    DiskFiles disk;
    FaultyFiles files(disk);
    files.CutShort(folder.Path() + "\\maps\\USA.MAP", 4);
    EXPECT_EQ(files.Read(folder.Path() + "/Maps/Usa.map"), "0123");
    files.MakeUnreadable(folder.Path() + "/MAPS/usa.MAP");
    EXPECT_TRUE(files.Exists(folder.Path() + "/Maps/Usa.map"));
    EXPECT_FALSE(files.Read(folder.Path() + "/Maps/Usa.map"));
}

} // namespace
} // namespace halvern::test
