// SPDX-License-Identifier: GPL-3.0-or-later
// Text lines through ProcessPacket, as they would come from the air. The station lives as long as the process, so that
// lines meet what the ones before have left; every line of an input is one packet.
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "engine/ProcessPacket.h"
#include "engine/ResetStores.h"
#include "platform/Text.h"
#include "support/Station.h"

using namespace halvern;

namespace {

constexpr const char* Tags[] = {"TNC", "SOUND", "PSK63", "TCPIP", "IMPORT"};

void Require(bool holds, const char* what)
{
    if (holds) return;
    std::fprintf(stderr, "broken: %s\n", what);
    std::abort();
}

/// What holds after every line, whatever it was.
void CheckInvariants(const Halvern& halvern)
{
    const auto& positions = halvern.PositionFrm.PosLst;
    Require(positions.Count() <= static_cast<int>(halvern.Map.StationPlot.size()) || positions.Count() == 0,
            "a plot record for every position row");
    Require(positions.Count() <= halvern.MapFrm.SymPic.Count() || positions.Count() == 0, "a picture for every row");
    Require(positions.Count() <= halvern.MapFrm.SymLbl.Count() || positions.Count() == 0, "a label for every row");
    Require(halvern.ConMdiFrm.MyObjectLst.Count() == halvern.ConMdiFrm.TransmitLst.Count(),
            "objects and stages are parallel");
    for (int i = 0; i < positions.Count(); ++i) {
        const auto& row = positions.Row(i);
        Require(row.size() >= 37 && row[17] == 'z', "a position row has its columns");
        Require(TrimmedRight(Columns(row, 1, 9)) == TrimmedRight(halvern.Map.StationPlot[i].Caption),
                "one row, one station");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static test::Station* const station = [] {
        auto* made = new test::Station;
        made->SetUp();
        made->halvern.SetUpfrm.UnPath.Preselect(1);
        made->dialogs.Say = nullptr;
        return made;
    }();
    auto& halvern = station->halvern;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    std::size_t count = size;
    for (const auto line : LinesOf(text)) {
        std::string packet(line);
        halvern.Engine.ReviewMode = count % 7 == 0;
        ProcessPacket(halvern, packet, Tags[count++ % 5]);
    }
    CheckInvariants(halvern);
    if (halvern.PositionFrm.PosLst.Count() > 200) ResetStores(halvern, "Clear");
    return 0;
}
