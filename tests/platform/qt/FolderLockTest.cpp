// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/FolderLock.h"

#include <QSysInfo>
#include <unistd.h>

#include "support/StationTest.h"

namespace halvern::test {
namespace {

TEST(FolderLock, KeepsASecondProgramOffAndOutlivesNobody)
{
    const TemporaryFolder folder;
    const auto host = QSysInfo::machineHostName().toStdString();
    const auto me = std::to_string(::getpid());
    const struct {
        const char* what;
        std::string left; ///< what the lock file holds before
        bool taken;
    } cases[] = {{"nothing was left", "", true},
                 {"of a program that is gone", "4194400\nhalvern\n" + host + "\n", true},
                 {"of a number that is another program's now", "1\nhalvern\n" + host + "\n", true},
                 {"cut short", "\n", true},
                 {"of another machine", "4194400\nhalvern\nsome-other-machine\n", false}};
    for (const auto& [what, left, taken] : cases) {
        if (!left.empty()) {
            folder.Put("Halvern.lock", left);
            std::filesystem::last_write_time(folder.Path() + "/Halvern.lock",
                                             std::filesystem::file_time_type::clock::now() - std::chrono::hours(1));
        }
        FolderLock first(folder.Path()), second(folder.Path());
        EXPECT_EQ(first.Take().empty(), taken) << what;
        const auto words = second.Take();
        EXPECT_THAT(words, HasSubstr("The folder " + folder.Path() + " is in use by ")) << what;
        EXPECT_THAT(words,
                    HasSubstr(taken ? ", process " + me + "." : "halvern, process 4194400 on some-other-machine."));
    }
    EXPECT_EQ(FolderLock("/proc").Take(), "") << "where nothing can be written, nothing can be undone";
}

} // namespace
} // namespace halvern::test
