// SPDX-License-Identifier: GPL-3.0-or-later
// Real packets as sound, decoded by the packet engine direwolf, and back to our stores by its KISS port and by its
// pseudo-terminal: row for row what the same lines leave that are handed straight to the engine.
#include <algorithm>
#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>

#include <QFile>
#include <QProcess>
#include <QStandardPaths>

#include "counterparts/OwnNetwork.h"
#include "platform/Text.h"
#include "platform/qt/QtSerialDevice.h"
#include "platform/qt/QtSocketDevice.h"
#include "ports/Ax25.h"
#include "support/Station.h"
#include "support/Stores.h"
#include "support/qt/Application.h"

namespace halvern::test {
namespace {

constexpr const char* Engine = "direwolf";
constexpr const char* SoundMaker = "gen_packets";
constexpr const char* EngineSettings = "ADEVICE stdin null\nARATE 44100\nACHANNELS 1\nCHANNEL 0\nMYCALL N0CALL-10\n"
                                       "MODEM 1200\nAGWPORT 0\nKISSPORT 4000\n";
constexpr std::size_t WavHeader = 44;
/// The pseudo-terminal of the engine, a link that it makes.
const std::string EngineLine = "/tmp/kisstnc";

/// As the frame codec gives it back: only the last used entry of the path keeps its star.
std::string OneStar(const std::string& line)
{
    auto header = line.substr(0, line.find(':'));
    const auto last = header.rfind('*');
    for (auto star = header.find('*'); star != std::string::npos && star < header.rfind('*'); star = header.find('*'))
        header.erase(star, 1);
    return last == std::string::npos ? line : header + line.substr(line.find(':'));
}

/// Lines that can go out on the air: without what only the Internet knows.
std::vector<std::string> LinesFrom(const std::string& path)
{
    std::vector<std::string> lines;
    std::ifstream file(path, std::ios::binary);
    for (std::string line; std::getline(file, line);)
        if (!line.empty() && line.front() != '#' && line.find(",q") > line.find(':') && Holds(line, ":"))
            lines.push_back(line);
    return lines;
}

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
    void StartEngine()
    {
        folder.Put("engine.conf", EngineSettings);
        engine.setWorkingDirectory(QString::fromStdString(folder.Path()));
        engine.setStandardOutputFile(QString::fromStdString(folder.Path() + "/engine.log"));
        engine.setProcessChannelMode(QProcess::MergedChannels);
        engine.start(Engine, {"-c", "engine.conf", "-p", "-t", "0", "-r", "44100", "-b", "16", "-n", "1", "-"});
        ASSERT_TRUE(engine.waitForStarted());
        QTcpSocket probe;
        ASSERT_TRUE(RunUntil(
            [&] {
                if (probe.state() == QAbstractSocket::UnconnectedState) probe.connectToHost("127.0.0.1", 4000);
                return probe.state() == QAbstractSocket::ConnectedState && std::filesystem::exists(EngineLine);
            },
            15000))
            << Log();
    }
    std::string Log() const
    {
        std::ifstream file(folder.Path() + "/engine.log");
        return {std::istreambuf_iterator<char>(file), {}};
    }

    TemporaryFolder folder;
    QProcess engine;
};

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
    RunUntil([&] { return bySocket.Heard() >= expected && bySerial.Heard() >= expected; }, 60000);
    EXPECT_EQ(StoresOf(bySocket.station.halvern), StoresOf(byHand.halvern)) << "by port 4000";
    EXPECT_EQ(StoresOf(bySerial.station.halvern), StoresOf(byHand.halvern)) << "by the pseudo-terminal";
    std::printf("%zu lines on the air, %d by port 4000, %d by the pseudo-terminal\n", lines.size(), bySocket.Heard(),
                bySerial.Heard());
}

} // namespace
} // namespace halvern::test
