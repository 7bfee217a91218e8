// SPDX-License-Identifier: GPL-3.0-or-later
// Real packets as sound, decoded by the packet engine direwolf, and back to our stores by its KISS port and by its
// pseudo-terminal: row for row what the same lines leave that are handed straight to the engine.
#include <algorithm>
#include <filesystem>
#include <fstream>

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTcpSocket>

#include "counterparts/Counterpart.h"
#include "platform/qt/QtSerialDevice.h"
#include "platform/qt/QtSocketDevice.h"
#include "support/StationTest.h"
#include "support/qt/Application.h"
#include "support/qt/Cable.h"

namespace halvern::test {
namespace {

// Without sound hardware the engine hears what a test makes as sound, offers KISS on port 4000 and on a
// pseudo-terminal, and tells in its log what it transmits.
constexpr const char* Engine = "direwolf";
constexpr const char* SoundMaker = "gen_packets";
constexpr std::size_t WavHeader = 44;
/// The pseudo-terminal of the engine, a link that it makes.
const std::string EngineLine = "/tmp/kisstnc";

/// A station that listens to the engine on one of its ports.
struct Listener {
    Listener() { station.SetUp(); }
    int Heard() const { return station.halvern.TerminalFrm.RawPacketLst.Count(); }
    Station station;
    MainForm& main = station.halvern.ConMdiFrm;
    QtSocketDevice socket{main.SoundSoc};
    QtSerialDevice serial{main.MSComm1, [] { return std::map<int, std::string>{{1, EngineLine}}; }};
};

struct KissEngine : testing::Test {
    void SetUp() override
    {
        for (const char* program : {Engine, SoundMaker})
            if (QStandardPaths::findExecutable(program).isEmpty())
                GTEST_SKIP() << "Skipped: the counterpart " << program << " is not installed";
        if (Cable().Device().empty()) GTEST_SKIP() << NoTerminal;
        if (!WhyNoNetwork().empty()) GTEST_SKIP() << "Skipped: " << WhyNoNetwork();
    }
    ~KissEngine() override
    {
        engine.kill();
        engine.waitForFinished();
    }
    /// The lines as 1200 baud sound.
    QByteArray SoundOf(const std::vector<std::string>& lines)
    {
        std::string text;
        for (const auto& line : lines) text += line + "\n";
        folder.Put("heard.txt", text);
        QProcess maker;
        maker.setWorkingDirectory(QString::fromStdString(folder.Path()));
        maker.setStandardOutputFile(QProcess::nullDevice());
        maker.start(SoundMaker, {"-o", "heard.wav", "heard.txt"});
        EXPECT_TRUE(maker.waitForFinished(60000));
        QFile wav(QString::fromStdString(folder.Path() + "/heard.wav"));
        EXPECT_TRUE(wav.open(QIODevice::ReadOnly) && wav.seek(WavHeader));
        return wav.readAll();
    }
    /// The engine hears standard input, and transmits into a file.
    void StartEngine()
    {
        folder.Put("engine.conf",
                   "ADEVICE stdin rec\nARATE 44100\nACHANNELS 1\nCHANNEL 0\nMYCALL N0CALL-10\nMODEM 1200\n"
                   "AGWPORT 0\nKISSPORT 4000\nTXDELAY 10\nTXTAIL 2\nPERSIST 255\nSLOTTIME 1\n");
        folder.Put("sound.conf", "</usr/share/alsa/alsa.conf>\npcm.rec {\n  type file\n  slave.pcm null\n  file \"" +
                                     folder.Path() + "/sent.raw\"\n  format raw\n}\n");
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert("ALSA_CONFIG_PATH", QString::fromStdString(folder.Path() + "/sound.conf"));
        engine.setProcessEnvironment(environment);
        engine.setWorkingDirectory(QString::fromStdString(folder.Path()));
        engine.setStandardOutputFile(QString::fromStdString(folder.Path() + "/engine.log"));
        engine.setProcessChannelMode(QProcess::MergedChannels);
        engine.start(Engine, {"-c", "engine.conf", "-p", "-t", "0", "-r", "44100", "-b", "16", "-n", "1", "-"});
        ASSERT_TRUE(engine.waitForStarted());
        QTcpSocket probe;
        ASSERT_TRUE(RunUntil([&] {
            if (probe.state() == QAbstractSocket::UnconnectedState) probe.connectToHost("127.0.0.1", 4000);
            return probe.state() == QAbstractSocket::ConnectedState && std::filesystem::exists(EngineLine);
        })) << Log();
    }
    std::string Log() const
    {
        std::ifstream file(folder.Path() + "/engine.log");
        return {std::istreambuf_iterator<char>(file), {}};
    }

    TemporaryFolder folder;
    QProcess engine;
};

/// As the frame codec gives it back: only the last used entry of the path keeps its star.
std::string OneStar(const std::string& line)
{
    auto header = line.substr(0, line.find(':'));
    const auto last = header.rfind('*');
    for (auto star = header.find('*'); star != std::string::npos && star < header.rfind('*'); star = header.find('*'))
        header.erase(star, 1);
    return last == std::string::npos ? line : header + line.substr(line.find(':'));
}

TEST_F(KissEngine, RealPacketsLeaveTheSameRowsByTheAirAsByHand)
{
    const auto traffic = TrafficFile("tape-2005.tnc2");
    auto lines = LinesFrom(traffic.empty() ? DataFolder() + "/demo/world.tnc2" : traffic);
    lines.resize(std::min<std::size_t>(lines.size(), 1000));
    ASSERT_GT(lines.size(), 500u);
    const auto sound = SoundOf(lines);

    Station byHand;
    byHand.SetUp();
    for (const auto& line : lines) byHand.Hear(OneStar(line), "SOUND");

    ASSERT_NO_FATAL_FAILURE(StartEngine());
    Listener bySocket, bySerial;
    bySocket.main.SoundCardMenu.Click();
    ASSERT_TRUE(bySocket.main.SoundCardMenu.Checked());
    bySerial.main.PortTnc.Click();
    ASSERT_TRUE(bySerial.main.PortTnc.Checked());

    engine.write(sound);
    const int expected = byHand.halvern.TerminalFrm.RawPacketLst.Count();
    RunUntil([&] { return bySocket.Heard() >= expected && bySerial.Heard() >= expected; });
    EXPECT_EQ(StoresOf(bySocket.station.halvern), StoresOf(byHand.halvern)) << "by port 4000";
    EXPECT_EQ(StoresOf(bySerial.station.halvern), StoresOf(byHand.halvern)) << "by the pseudo-terminal";
    std::printf("%zu lines on the air, %d by port 4000, %d by the pseudo-terminal\n", lines.size(), bySocket.Heard(),
                bySerial.Heard());
}

} // namespace
} // namespace halvern::test
