// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Files.h"

#include <fcntl.h>
#include <sys/stat.h>

#include "support/StationTest.h"

namespace halvern::test {
namespace {

namespace fs = std::filesystem;

TEST(DiskFiles, WhatStandsUnderANameIsWrittenOrStays)
{
    const TemporaryFolder folder;
    const auto at = [&](const std::string& name) { return fs::path(folder.Path()) / name; };
    folder.Put("plain", "old");
    folder.Put("elsewhere/kept", "old");
    folder.Put("elsewhere/secret", "old");
    fs::create_symlink("elsewhere/kept", at("link"));
    fs::create_symlink("link", at("link of a link"));
    fs::create_symlink("elsewhere/fresh", at("dangling"));
    fs::create_symlink("round", at("round"));
    fs::create_directory(at("folder"));
    ASSERT_EQ(::mkfifo(at("pipe").c_str(), 0644), 0);
    fs::create_symlink("/dev/full", at("device"));
    fs::create_symlink("elsewhere/secret", at("plain.new"));
    folder.Put("plain.12345678.new", "cut short");
    folder.Put("plain.1234567x.new", "somebody's own");
    fs::permissions(at("plain"), fs::perms::owner_read | fs::perms::owner_write);
    const struct {
        const char *name, *target, *fault;
    } cases[] = {{"plain", "plain", ""},
                 {"fresh", "fresh", ""},
                 {"link of a link", "elsewhere/kept", ""},
                 {"dangling", "elsewhere/fresh", ""},
                 {"folder", nullptr, "It is no plain file"},
                 {"pipe", nullptr, "It is no plain file"},
                 {"device", nullptr, "It is no plain file"},
                 {"round", nullptr, "Too many levels of symbolic links"}};
    DiskFiles files;
    std::string trouble;
    for (const auto& [name, target, fault] : cases) {
        const auto kind = fs::symlink_status(at(name)).type();
        EXPECT_EQ(files.Write(at(name), name), fault) << name;
        EXPECT_TRUE(kind == fs::file_type::not_found || fs::symlink_status(at(name)).type() == kind) << name;
        EXPECT_TRUE(target == nullptr || files.Read(at(target)) == name);
        EXPECT_TRUE(target != nullptr || (!files.Read(at(name)) && !files.OpenForOutput(at(name), trouble))) << name;
    }
    EXPECT_EQ(files.Read(at("elsewhere/secret")), "old") << "a link in the way of a file in the making";
    EXPECT_EQ(fs::status(at("plain")).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_FALSE(files.Exists(at("plain.12345678.new"))) << "a leftover";
    EXPECT_THAT(files.Names(folder.Path()), ElementsAre("dangling", "device", "fresh", "link", "link of a link", "pipe",
                                                        "plain", "plain.1234567x.new", "plain.new", "round"));
}

TEST(DiskFiles, AFileBeyondAllMeasureIsNotRead)
{
    const TemporaryFolder folder;
    folder.Put("long", "");
    fs::resize_file(folder.Path() + "/long", LongestFile + 1); // holes, no bytes of the disk
    EXPECT_FALSE(DiskFiles().Read(folder.Path() + "/long"));
}

} // namespace
} // namespace halvern::test
