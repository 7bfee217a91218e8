// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

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

/// The packet engine direwolf without sound hardware: it hears what a test makes as sound, offers KISS on port 4000 and
/// on a pseudo-terminal, and tells in its log what it transmits.
namespace halvern::test {

constexpr const char* Engine = "direwolf";
constexpr const char* SoundMaker = "gen_packets";
constexpr std::size_t WavHeader = 44;
/// The pseudo-terminal of the engine, a link that it makes.
inline const std::string EngineLine = "/tmp/kisstnc";

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

} // namespace halvern::test
