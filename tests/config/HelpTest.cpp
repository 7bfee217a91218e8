// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <regex>

#include "support/Station.h"

namespace halvern::test {
namespace {

TEST(Help, EveryLinkLeadsSomewhereAndEveryPageIsLinked)
{
    DiskFiles files;
    const auto folder = DataFolder() + "/help/";
    const std::regex link("(?:href|src)=\"([^\":]+)\"");
    std::string linked = "index.html ";
    for (const auto& name : files.Names(folder)) {
        if (!name.ends_with(".html")) continue;
        const auto page = files.Read(folder + name).value();
        for (std::sregex_iterator found(page.begin(), page.end(), link), end; found != end; ++found) {
            const auto target = (*found)[1].str();
            EXPECT_TRUE(files.Exists(folder + target)) << name << " names " << target;
            linked += target + " ";
        }
    }
    for (const auto& name : files.Names(folder)) EXPECT_NE(linked.find(name + " "), std::string::npos) << name;
    for (const auto text : {"WxHelp.txt", "IgateHelp.txt"}) EXPECT_TRUE(files.Exists(DataFolder() + "/" + text));
}

} // namespace
} // namespace halvern::test
