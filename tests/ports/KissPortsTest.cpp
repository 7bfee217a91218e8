// SPDX-License-Identifier: GPL-3.0-or-later

#include "ports/Kiss.h"
#include "support/StationTest.h"
#include "transmit/SendPacket.h"

namespace halvern::test {
namespace {

using namespace std::string_literals;

const auto Fend = "\xC0"s;

struct KissPorts : StationTest {};

TEST_F(KissPorts, FindTheFrameInWhateverComes)
{
    const auto frame = FrameOf("Q0AAA>APRS:>one");
    const auto inside = frame.substr(1); // without its opening FEND
    const std::tuple<const char*, Strings, int> cases[] = {
        {"in pieces", {frame.substr(0, 1), frame.substr(1, 20), frame.substr(21)}, 1},
        {"a FEND too many", {Fend + frame, "x"}, 1},
        {"two FENDs too many", {Fend + Fend + frame, "x", "y"}, 1},
        {"noise before costs the frame behind it", {"noise" + frame, frame, "x"}, 1},
        {"one FEND between two", {frame, inside}, 1},
        {"a carriage return behind", {frame.substr(0, frame.size() - 1) + "\r" + Fend}, 1},
        {"another command and port", {Fend + "\x17" + frame.substr(2)}, 1},
        {"a frame too long", {Fend + std::string(100000, 'x'), "x" + Fend, frame}, 1},
        {"no frame", {Fend + "\0garbage"s + Fend}, 0},
    };
    for (const auto& [what, arrivals, heard] : cases) {
        Station fresh;
        fresh.SetUp();
        fresh.OpenTnc();
        for (const auto& bytes : arrivals) fresh.halvern.ConMdiFrm.MSComm1.Arrived(bytes);
        EXPECT_EQ(Rows(fresh.halvern.TerminalFrm.RawPacketLst), Strings(heard, "Q0AAA>APRS:>one")) << what;
    }
}

TEST_F(KissPorts, SendOnEveryOpenPortOrOnTheOneNamed)
{
    const auto send = [&](std::string_view port) {
        std::string payload = "x";
        SendPacket(halvern, "APHV01", "Q0OWN", "", payload, port);
        return Air();
    };
    const std::string radio = "radio Q0OWN>APHV01:x", sound = "sound Q0OWN>APHV01:x";
    EXPECT_THAT(send(""), IsEmpty());
    main.SoundCardMenu.Click();
    station.OpenTnc();
    EXPECT_THAT(send(""), ElementsAre(radio, sound));
    EXPECT_THAT(send("TNC"), ElementsAre(radio));
    EXPECT_THAT(send("SOUND"), ElementsAre(sound));
    station.ports.SocketOf(main.SoundSoc)->HangUp();
    EXPECT_THAT(send(""), ElementsAre(radio));
    EXPECT_THAT(send("SOUND"), IsEmpty());
}

} // namespace
} // namespace halvern::test
