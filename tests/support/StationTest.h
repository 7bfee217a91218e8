// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "platform/Text.h"
#include "support/Station.h"

namespace halvern::test {

using testing::Contains, testing::ElementsAre, testing::HasSubstr, testing::IsEmpty, testing::SizeIs,
    testing::StartsWith;
using Strings = std::vector<std::string>;

/// A text as the dialect of marks sends it.
inline std::string Marked(std::string_view text)
{
    std::string bytes;
    for (const char character : text) bytes += {'\x19', character};
    return bytes;
}

/// A station that is set up, and where its tests look most.
struct StationTest : testing::Test {
    explicit StationTest(const std::string& programFolder = DataFolder()) : station(programFolder) { station.SetUp(); }
    static Strings Rows(const List& list) { return Station::Rows(list); }
    Strings Raw() const { return Rows(halvern.TerminalFrm.RawPacketLst); }
    Strings Said() { return station.TakeSaid(); }

    Station station;
    Halvern& halvern = station.halvern;
    MainForm& main = halvern.ConMdiFrm;
    MessageForm& form = halvern.MessageFrm;
    SetUpForm& setUp = halvern.SetUpfrm;
};

} // namespace halvern::test
