// SPDX-License-Identifier: GPL-3.0-or-later
// The files of lists that were put aside, as a dying disk or an editor may leave them. The first byte says which of
// them holds the input, the others are short and good. Whatever they say, the station goes on behind them.
#include <array>
#include <fstream>

#include "LivingStation.h"
#include "engine/ResetStores.h"
#include "history/Snapshot.h"
#include "relay/Messages.h"
#include "relay/Objects.h"

using namespace halvern;

namespace {

constexpr std::array<std::pair<const char*, const char*>, 14> Kept{
    {{"Pos.txt", "Q0OWN     =010000z4049.14N/07308.41W-own\r\nQ1ABC     !010000z4049.14N/07308.41W>one\r\n"},
     {"Status.txt", "Q0OWN    >here\r\n"},
     {"Digi.txt", "Blank\r\n"},
     {"Msgtoyou.txt", "Q1ABC>Q0OWN:12.hello\r\n"},
     {"OutMsg.txt", "Blank\r\n"},
     {"Traffic.txt", "Blank\r\n"},
     {"Bullmsg.txt", "Blank\r\n"},
     {"Object.txt", ";LEADER   *092345z4903.50N/07201.75W>088/036in front|WIDE2-2\r\n"},
     {"Objtrans.txt", "A\r\n"},
     {"Resource.txt", "Blank\r\n"},
     {"MsgTimerint.txt", "0\r\n"},
     {"MsgTimer.txt", "False\r\n"},
     {"Objecttimerint.txt", "8000\r\n"},
     {"Objecttimer.txt", "True\r\n"}}};

struct Folder : test::TemporaryFolder {
    Folder() { std::filesystem::create_directory_symlink(test::DataFolder() + "/symbols", Path() + "/symbols"); }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    static const auto* const folder = new Folder;
    static auto* const station = [] {
        auto* made = new test::Station(folder->Path());
        made->SetUp();
        made->dialogs.Say = nullptr;
        made->OpenTnc();
        return made;
    }();
    if (size == 0) return 0;
    auto& halvern = station->halvern;
    for (std::size_t i = 0; i < Kept.size(); ++i) {
        std::ofstream file(folder->Path() + "/" + Kept[i].first, std::ios::binary);
        if (i == data[0] % Kept.size())
            file.write(reinterpret_cast<const char*>(data) + 1, static_cast<std::streamsize>(size - 1));
        else
            file << Kept[i].second;
    }
    Require(SnapshotStands(halvern), "a state is kept");
    ResetStores(halvern, "RestoreMenu");
    RestoreState(halvern);
    Require(!SnapshotStands(halvern), "a state is kept until it was brought back");
    CheckInvariants(halvern);
    ObjectTick(halvern);
    RetryTick(halvern);
    station->Hear("Q1ABC>APRS:!4049.15N/07308.42W>two");
    CheckInvariants(halvern);
    station->SentByRadio();
    if (halvern.TerminalFrm.RawPacketLst.Count() > 1000) ResetStores(halvern, "Clear");
    return 0;
}
