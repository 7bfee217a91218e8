// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/QtSerialDevice.h"

#include <cstdlib>
#include <map>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include "platform/Text.h"
#include "platform/qt/ComPorts.h"
#include "platform/qt/QtPlatform.h"
#include "support/Station.h"
#include "support/qt/Application.h"
#include "support/qt/Cable.h"

namespace halvern {
namespace {

using test::Cable;
using test::NoTerminal;
using test::RunUntil;

struct SerialForm : Form {
    explicit SerialForm(Controls& all) : Form(all, "PortFrm", "Ports") {}
    SerialPort Tnc{*this, "Tnc", KissFrames};
    SerialPort Gps{*this, "Gps"};
};

struct SerialTest : ::testing::Test {
    void SetUp() override
    {
        if (cable.Device().empty()) GTEST_SKIP() << NoTerminal;
    }
    void Open(SerialPort& port, int number = 1)
    {
        port.PortNumber = number;
        port.Settings = "9600,n,8,1";
        const auto error = port.Open();
        ASSERT_FALSE(error) << error->description;
        port.ReceiveThreshold = 1;
        port.OnReceive = [&](int code) {
            EXPECT_EQ(code, ReceivedBytes);
            events.push_back(port.ReadAll());
        };
    }
    /// The refusal of an open of Com1 at this device.
    PortError Refused(const std::string& device, const std::string& settings = "9600,n,8,1")
    {
        devices = {{1, device}};
        form.Tnc.PortNumber = 1;
        form.Tnc.Settings = settings;
        const auto error = form.Tnc.Open();
        EXPECT_FALSE(form.Tnc.IsOpen());
        EXPECT_TRUE(error.has_value());
        return error.value_or(PortError{});
    }

    Cable cable;
    std::map<int, std::string> devices{{1, cable.Device()}};
    Controls all;
    SerialForm form{all};
    QtSerialDevice tnc{form.Tnc, [this] { return devices; }};
    QtSerialDevice gps{form.Gps, [this] { return devices; }};
    std::vector<std::string> events;
};

TEST_F(SerialTest, FramesComeOneAnEventAndBytesGoOutUntouched)
{
    std::string bytes;
    for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
    Open(form.Tnc);
    form.Tnc.Write(bytes);
    std::string out;
    EXPECT_TRUE(RunUntil([&] { return (out += cable.Take()).size() >= bytes.size(); }));
    EXPECT_EQ(out, bytes);

    cable.Send("\xC0 first\xC0 sec");
    EXPECT_TRUE(RunUntil([&] { return events.size() == 1; }));
    cable.Send(std::string("ond\xC0\0third\xC0", 11));
    EXPECT_TRUE(RunUntil([&] { return events.size() >= 3; }));
    EXPECT_EQ(events, (std::vector<std::string>{"\xC0 first\xC0", "\xC0 second\xC0", {"\xC0\0third\xC0", 8}}));
}

TEST_F(SerialTest, BytesBelowTheThresholdWaitInThePort)
{
    Open(form.Gps);
    form.Gps.ReceiveThreshold = 0;
    cable.Send("$GPRMC");
    EXPECT_TRUE(RunUntil([&] { return form.Gps.Waiting() == 6; }));
    EXPECT_TRUE(events.empty());
    form.Gps.DiscardInput();
    form.Gps.ReceiveThreshold = 4;
    cable.Send("abc");
    EXPECT_TRUE(RunUntil([&] { return form.Gps.Waiting() == 3; }));
    EXPECT_TRUE(events.empty());
    cable.Send("d");
    EXPECT_TRUE(RunUntil([&] { return !events.empty(); }));
    EXPECT_EQ(events[0], "abcd");
}

TEST_F(SerialTest, ADeviceUnpluggedInTheMiddleIsLostQuietlyAndOpensAgain)
{
    Open(form.Tnc);
    cable.Send("one\xC0two");
    EXPECT_TRUE(RunUntil([&] { return !events.empty(); }));
    cable.Unplug();
    EXPECT_TRUE(RunUntil([&] { return !form.Tnc.IsOpen(); }));
    form.Tnc.Write("lost");
    form.Tnc.DiscardOutput();
    EXPECT_EQ(events.size(), 1U);
    form.Tnc.Close();

    const Cable again;
    devices = {{1, again.Device()}};
    Open(form.Tnc);
    events.clear();
    again.Send("back\xC0");
    EXPECT_TRUE(RunUntil([&] { return !events.empty(); }));
    EXPECT_EQ(events[0], "\xC0\x62"
                         "ack\xC0");
}

TEST_F(SerialTest, ARefusedOpenSaysWhatToDo)
{
    Open(form.Gps);
    const auto busy = Refused(cable.Device());
    EXPECT_EQ(busy.source, "Tnc");
    EXPECT_TRUE(Holds(busy.description, "Another program")) << busy.description;
    form.Gps.Close();

    const auto good = "9600,n,8,1";
    const struct {
        std::string device, settings, why;
    } cases[] = {{"/dev/no-such-device", good, "plugged in"},
                 {"", good, "comports.txt"},
                 {"/dev/null", good, "serial device"},
                 {cable.Device(), "fast,n,8,1", "another speed"},
                 {cable.Device(), "9600", "another speed"}};
    for (const auto& [device, settings, why] : cases)
        EXPECT_TRUE(Holds(Refused(device, settings).description, why)) << why;

    ASSERT_EQ(::chmod(cable.Device().c_str(), 0), 0);
    const bool root = ::geteuid() == 0;
    const int lowered = root ? ::seteuid(65534) : 0;
    const auto refusal = Refused(cable.Device());
    ASSERT_EQ(lowered | (root ? ::seteuid(0) : 0), 0);
    EXPECT_TRUE(Holds(refusal.description, "no permission")) << refusal.description;
    EXPECT_TRUE(Holds(refusal.description, "adduser")) << refusal.description;
}

TEST(ComPortsTest, PinnedDevicesKeepTheirNumberAndTheOthersFillUp)
{
    const std::vector<std::string> found{"/dev/ttyUSB10", "/dev/ttyUSB2", "/dev/ttyS0", "/dev/ttyACM0"};
    using Ports = std::map<int, std::string>;
    EXPECT_EQ(AssignComPorts("", found),
              (Ports{{1, "/dev/ttyACM0"}, {2, "/dev/ttyS0"}, {3, "/dev/ttyUSB2"}, {4, "/dev/ttyUSB10"}}));
    EXPECT_EQ(
        AssignComPorts("# mine\r\n Com2 /dev/ttyUSB10\r\ncom16\t/dev/tnc one\nCom17 /dev/x\nCom0 /dev/y\nCom3\n",
                       found),
        (Ports{
            {1, "/dev/ttyACM0"}, {2, "/dev/ttyUSB10"}, {3, "/dev/ttyS0"}, {4, "/dev/ttyUSB2"}, {16, "/dev/tnc one"}}));
    EXPECT_EQ(AssignComPorts("", std::vector<std::string>(40, "/dev/ttyS1")).size(), 16u);
}

TEST(QtPlatformTest, EquipsAStationsPortsAndTimers)
{
    const Cable cable;
    if (cable.Device().empty()) GTEST_SKIP() << NoTerminal;
    const test::TemporaryFolder folder;
    folder.Put("comports.txt", "Com3 " + cable.Device() + "\n");
    Controls all;
    struct TimedForm : SerialForm {
        using SerialForm::SerialForm;
        Timer Clock{*this, "Clock"}, Later{*this, "Later"};
    } form{all};
    const QtPlatform platform(all, folder.Path());

    form.Gps.PortNumber = 3;
    form.Gps.Settings = "4800,n,8,1";
    EXPECT_FALSE(form.Gps.Open());

    int ticks = 0;
    form.Clock.OnTick = [&] {
        if (++ticks == 3) form.Clock.Stop();
        if (ticks == 1) throw RuntimeFailure(failure::Overflow, "ends this tick only");
    };
    bool later = false;
    form.Later.OnTick = [&] { later = true; };
    const auto longer = [&] {
        later = false;
        form.Later.Start(30);
        return RunUntil([&] { return later; });
    };
    form.Clock.SetInterval(10);
    EXPECT_TRUE(longer());
    EXPECT_EQ(ticks, 0) << "not enabled yet";
    form.Clock.SetEnabled(true);
    EXPECT_TRUE(RunUntil([&] { return ticks == 3; }) && longer());
    EXPECT_EQ(ticks, 3);
    form.Clock.Start(10);
    form.Clock.SetInterval(3600000); // each change starts the wait anew
    EXPECT_TRUE(longer());
    EXPECT_EQ(ticks, 3);
    form.Clock.SetInterval(10);
    EXPECT_TRUE(RunUntil([&] { return ticks > 3; }));
}

} // namespace
} // namespace halvern
