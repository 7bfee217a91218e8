// SPDX-License-Identifier: GPL-3.0-or-later
// A GPS receiver on a real serial line at 4800 baud, and what of its output goes on the air.
#include <functional>

#include "platform/qt/QtSerialDevice.h"
#include "support/Receiver.h"
#include "support/StationTest.h"
#include "support/qt/Application.h"
#include "support/qt/Cable.h"

namespace halvern::test {
namespace {

constexpr int SendTime = 65000; // milliseconds

struct GpsLine : StationTest {
    void SetUp() override
    {
        if (cable.Device().empty()) GTEST_SKIP() << NoTerminal;
        setUp.GpsSendTimeLst.Preselect(setUp.GpsSendTimeLst.IndexOf("1 Min"));
        station.OpenTnc();
        Choose("GPRMC");
    }
    /// Opens the port with this sentence, up to its first send time.
    void Choose(const std::string& sentence)
    {
        if (main.GpsMenu.Checked()) main.GpsMenu.Click();
        main.GpsMenu.SetEnabled(true);
        setUp.GpsOpt.Select(0);
        setUp.GpsSentanceLst.Preselect(setUp.GpsSentanceLst.IndexOf(sentence));
        main.GpsMenu.Click();
        station.time.Wait(1);
    }
    /// A block comes in pieces while the port is open. @return the position that went out, or what was said, or neither
    std::string Receive(const std::string& block)
    {
        if (!main.GpsCom.IsOpen()) station.time.Wait(SendTime);
        for (std::size_t at = 0; at < block.size(); at += 97) {
            cable.Send(std::string_view(block).substr(at, 97));
            QApplication::processEvents();
        }
        EXPECT_TRUE(RunUntil([&] { return !main.GpsCom.IsOpen(); })) << "the port rests behind a block";
        const auto sent = station.SentByRadio();
        EXPECT_TRUE(sent.empty() || sent[1] == "Q0OWN>APHV01:>here");
        const auto said = Said();
        return !sent.empty() ? sent[0].substr(sent[0].find(':') + 1) : said.empty() ? "" : said[0];
    }
    /// These come, perhaps behind the rest of an earlier block, and wait in the port.
    void Wait(const std::string& bytes)
    {
        cable.Send(bytes);
        EXPECT_TRUE(RunUntil([&] { return main.GpsCom.Waiting() >= bytes.size(); }));
    }

    Cable cable;
    const QtSerialDevice device{main.GpsCom, [this, path = cable.Device()] {
                                    return std::map<int, std::string>{{2, path}};
                                }};
};

TEST_F(GpsLine, CarriesEachKindOfSentence)
{
    EXPECT_EQ(cable.Speed(), B4800);
    const struct {
        const char *name, *sentence, *position;
    } cases[] = {
        {"GPRMC", "$GPRMC,013714,A,3408.6360,N,11812.0716,W,0.0,88.1,231105,13.5,E,D*09",
         "=3408.63N/11812.07W-088/000 own"},
        {"GPRMC", "$GPRMC,013801,V,3354.0188,N,11805.8904,W,000.0,000.0,301105,013.7,E*73", ""},
        {"GPGGA", "$GPGGA,040332,3405.438,N,11801.836,W,1,06,1.1,114.2,M,-31.5,M,,*75", "=3405.43N/11801.83W- own"},
        {"GPGLL", "$GPGLL,3405.438,N,11801.836,W,040332,A*75", "=3405.43N/11801.83W- own"},
    };
    for (const auto& [name, sentence, position] : cases) {
        Choose(name);
        EXPECT_EQ(Receive(ReceiverBlock(sentence)), position) << sentence;
        EXPECT_TRUE(main.GpsMenu.Checked()) << "no fix is no fault";
    }
}

TEST_F(GpsLine, ForgetsWhatWasSaidWhileNobodyListened)
{
    const auto at = [](int minute) {
        return ReceiverBlock("$GPGLL,34" + std::to_string(minute) + ".00,N,11801.83,W,040332,A*75");
    };
    Choose("GPGLL");
    EXPECT_EQ(Receive(at(10)), "=3410.00N/11801.83W- own");
    std::string old;
    for (int minute = 11; minute < 50; ++minute) old += at(minute);
    for (std::size_t sent = 0, taken = 1; taken > 0; sent += taken) taken = cable.Offer(old.substr(sent));
    EXPECT_EQ(Receive(at(50)), "=3450.00N/11801.83W- own");
}

TEST_F(GpsLine, TellsASentenceThatNeverComesASilentReceiverAndOneUnplugged)
{
    EXPECT_THAT(Receive(ReceiverBlock("$GNRMC,210000,A,4100.00,N,07200.00,W,30.2,271.0,010100,,*7C")),
                HasSubstr("Your GPS is not outputting the GPRMC GPS sentance."));
    EXPECT_TRUE(!main.GpsMenu.Checked() && main.Timer2.Running()) << "the beacons go on";

    const std::string there = "$GPRMC,210000,A,4100.00,N,07200.00,W,30.2,271.0,010100,,*7C";
    const auto unplug = [&] {
        cable.Unplug();
        EXPECT_TRUE(RunUntil([&] { return !main.GpsCom.IsOpen(); }));
    };
    const struct {
        const char *what, *told;
        std::function<void()> act;
    } cases[] = {{"silent", "Error # 8005", [] {}},
                 {"too little", "Error # 8005", [&] { Wait(there); }},
                 {"unplugged", "Error # 8002", [&] { Wait(there.substr(0, 20)), unplug(); }}};
    for (const auto& [what, told, act] : cases) {
        Choose("GPRMC");
        EXPECT_THAT(Receive(ReceiverBlock(there)), StartsWith("=4100.00N/07200.00W-")) << what;
        station.time.Wait(SendTime);
        act();
        EXPECT_THAT(Said(), IsEmpty());
        station.time.Wait(SendTime);
        EXPECT_THAT(Said(), ElementsAre(StartsWith("message none \"Error Opening GPS Port\" \"" + std::string(told))));
        EXPECT_FALSE(main.GpsMenu.Checked() || main.GpsCom.IsOpen() || main.GpsTimer.Running() ||
                     main.Timer2.Running());
        EXPECT_THAT(station.SentByRadio(), IsEmpty());
    }
}

} // namespace
} // namespace halvern::test
