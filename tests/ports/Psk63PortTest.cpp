// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/StationTest.h"

namespace halvern::test {
namespace {

const std::string Packet = "Q1ABC>APRS:>one";
const auto OnAir = [](const std::string& text) { return "SSSSS" + text + "EEEEE"; };

struct Psk63Port : StationTest {
    void Open(const char* port)
    {
        setUp.Psk63PortTxt.SetText(port);
        main.Psk63Menu.Click();
        main.Timer2.Stop(); // no beacons here
    }
    /// Characters from the engine, one an event.
    void Hear(const std::string& characters)
    {
        for (const char character : characters) main.Psk63Soc.Arrived(std::string{'\x1D', character});
    }
    Strings Sent() { return station.SentBy(main.Psk63Soc); }
};

TEST_F(Psk63Port, FindsThePacketsAmongTheCharacters)
{
    const auto text = [](std::size_t length) { return Padded(Packet, length - 1) + "."; };
    const auto noise = [](std::size_t length) { return std::string(length, '~'); };
    const struct {
        const char* what;
        std::string characters;
        Strings heard;
        std::string shown = Packet;
        bool busy = false;
    } cases[] = {
        {"noise around", "k;SSSSeiEEEEE" + OnAir(Packet) + "t~", {Packet}},
        {"two packets", OnAir(text(20)) + OnAir(Packet), {text(20), Packet}},
        {"a call that begins with S", OnAir("SM5ABC>APRS:>one"), {"SM5ABC>APRS:>one"}, "SM5ABC>APRS:>one"},
        {"a text that ends with E", OnAir(Packet + "E"), {Packet}},
        {"no packet between the markers", OnAir("cq > cq"), {}, "cq > cq"},
        {"the own packet", OnAir("Q0OWN>APRS:>me"), {}, "Q0OWN>APRS:>me"},
        {"the longest packet", OnAir(text(245)), {text(245)}, text(245)},
        {"a packet too long", OnAir(text(246)) + OnAir(Packet), {Packet}},
        {"the end lost", "SSSSS" + noise(249), {}, "PSK63 Port Open", true},
        {"the end lost for good", "SSSSS" + noise(250) + OnAir(Packet), {Packet}},
        {"a marker that just has room", noise(1018) + OnAir(Packet), {Packet}},
        {"a marker that has none", noise(1019) + OnAir(text(20)) + OnAir(Packet), {Packet}},
    };
    Open("3122");
    for (const auto& each : cases) {
        halvern.TerminalFrm.RawPacketLst.Clear();
        main.Psk63Menu.Click();
        main.Psk63Menu.Click(); // half a packet does not outlive its connection
        Hear(each.characters);
        EXPECT_EQ(Raw(), each.heard) << each.what;
        EXPECT_EQ(main.StatusBar1.Caption(), each.shown) << each.what;
        EXPECT_EQ(halvern.Engine.Psk63Busy, each.busy) << each.what;
    }
}

TEST_F(Psk63Port, SendsNothingWhileAPacketComesInAndAnswersWhenItIsThrough)
{
    Open("3122");
    Hear("SSSSSQ1ABC>APRS::Q0OWN    :Hello{7EEEE");
    station.Hear("Q1ABC>APRS:?APRS?");
    EXPECT_THAT(Sent(), IsEmpty());
    Hear("E");
    EXPECT_THAT(Sent(), ElementsAre(Marked(OnAir("Q0OWN>APHV01::Q1ABC    :ack7")), "\x1aTX\x1b"));
    for (const auto* reply : {"", "DONE", "DONE"}) {
        EXPECT_EQ(halvern.Engine.Psk63Reply, reply);
        main.Psk63Soc.Arrived("\x1C");
    }
    EXPECT_THAT(Sent(), IsEmpty());
    main.Psk63Soc.Arrived("\x1DS\x1DS\x1DS\x1DS\x1D~"); // one character a read, the last one
    EXPECT_TRUE(main.Psk63Hunt.ends_with("~") && !main.Psk63Hunt.ends_with("S~"));
}

TEST_F(Psk63Port, TellsOfALostConnectionAndOfNone)
{
    Open("3122");
    EXPECT_TRUE(main.CLRMsgTxtMenu.Visible());
    Hear("SSSSSQ1ABC>");
    station.ports.SocketOf(main.Psk63Soc)->HangUp();
    EXPECT_THAT(Said(), ElementsAre("message none \"Halvern\" \"Psk63 Disconnected!\""));
    EXPECT_FALSE(main.Psk63Menu.Checked() || main.CLRMsgTxtMenu.Visible() || main.NetDecayTmr.Enabled());
    for (const auto* port : {"", "3122x", "65536"}) {
        Open(port);
        EXPECT_THAT(Said(), ElementsAre("message none \"Halvern\" \"PSK63 connection failed.\"")) << port;
    }
    EXPECT_FALSE(main.Psk63Menu.Checked());
    form.PSk63HelpCmd.Click();
    EXPECT_THAT(Said(), ElementsAre(HasSubstr("psk63.html")));
}

} // namespace
} // namespace halvern::test
