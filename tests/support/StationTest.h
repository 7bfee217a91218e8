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

/// Everything that a packet leaves behind: the rows of all stores and the heard grid, each under its store's name.
inline Strings StoresOf(const Halvern& halvern)
{
    const List* const lists[] = {&halvern.PositionFrm.PosLst,    &halvern.StatusFrm.StatusLst,
                                 &halvern.DigiFrm.DigiLst,       &halvern.TerminalFrm.RawPacketLst,
                                 &halvern.DxFrm.ResourceLst,     &halvern.MessageFrm.MsgToYouLst,
                                 &halvern.MessageFrm.TrafficLst, &halvern.MessageFrm.BullLst};
    Strings all;
    for (const auto* list : lists)
        for (const auto& row : Station::Rows(*list)) all.push_back(list->Name() + " " + row);
    const auto& grid = halvern.HeardFrm.HeardGrid;
    for (int row = 0; row < grid.Rows(); ++row)
        for (int column = 0; column < grid.Cols(); ++column) all.push_back("heard " + grid.Cell(row, column));
    return all;
}

/// A station that is set up, and where its tests look most.
struct StationTest : testing::Test {
    explicit StationTest(const std::string& programFolder = DataFolder()) : station(programFolder) { station.SetUp(); }
    static Strings Rows(const List& list) { return Station::Rows(list); }
    Strings Raw() const { return Rows(halvern.TerminalFrm.RawPacketLst); }
    Strings Said() { return station.TakeSaid(); }
    /// What left by any port since last asked, the port in front: "radio LINE", "internet LINE\r\n".
    Strings Air()
    {
        const std::pair<std::string, const Port&> ports[] = {{"radio ", main.MSComm1},
                                                             {"sound ", main.SoundSoc},
                                                             {"internet ", main.InternetSoc},
                                                             {"psk63 ", main.Psk63Soc}};
        Strings air;
        for (const auto& [name, port] : ports)
            for (const auto& bytes : station.SentBy(port)) air.push_back(name + LineOfFrame(bytes));
        return air;
    }

    Station station;
    Halvern& halvern = station.halvern;
    MainForm& main = halvern.ConMdiFrm;
    MessageForm& form = halvern.MessageFrm;
    SetUpForm& setUp = halvern.SetUpfrm;
};

} // namespace halvern::test
