// SPDX-License-Identifier: GPL-3.0-or-later
#include <QProcess>
#include <QTcpSocket>

#include "protocol/Passcode.h"
#include "support/Console.h"
#include "support/StationTest.h"
#include "support/qt/Application.h"

namespace halvern::test {
namespace {

/// halvern-feed as a program of its own, with three packets to play.
struct FeedTest : testing::Test {
    void Start(QStringList options)
    {
        folder.Put("packets.txt",
                   "# a remark is not played\nQ1AAA>APRS:>one\r\nQ1BBB>APRS:>tw\xF6\n\nQ1CCC>APRS:>three");
        options << "--port"
                << "0" << QString::fromStdString(folder.Path() + "/packets.txt");
        feed.setProcessChannelMode(QProcess::MergedChannels);
        feed.start(HALVERN_BUILD "/halvern-feed", options);
        ASSERT_TRUE(RunUntil([&] { return Said("listening on 127.0.0.1:"); })) << output;
        const auto at = output.find("127.0.0.1:") + 10;
        port = static_cast<int>(LeadingNumber(output.substr(at)));
    }
    ~FeedTest() override
    {
        feed.kill();
        feed.waitForFinished();
    }
    bool Said(const std::string& words)
    {
        output += feed.readAll().toStdString();
        return Holds(output, words);
    }

    TemporaryFolder folder;
    QProcess feed;
    std::string output;
    int port = 0;
};

/// A client that is a plain socket.
struct Client {
    Client(int port, const std::string& login)
    {
        socket.connectToHost("127.0.0.1", static_cast<quint16>(port));
        Send(login);
    }
    void Send(const std::string& line) { socket.write((line + "\r\n").c_str()); }
    bool Hears(const std::string& line)
    {
        return RunUntil([&] { return Holds(heard += socket.readAll().toStdString(), line + "\r\n"); });
    }
    QTcpSocket socket;
    std::string heard;
};

TEST_F(FeedTest, ALiveConsoleHearsTheFile)
{
    Start({"--rate", "0"});
    LinkData(folder);
    const auto setUp = *DiskFiles().Read(HALVERN_SOURCE "/tests/stories/parts/set-up.txt");
    const auto input = setUp.substr(0, setUp.find("now ")) + // the clock is the machine's
                       "set SetUpfrm.IntDomainCombo \"127.0.0.1\"\nset SetUpfrm.APRServePortTxt \"" +
                       std::to_string(port) + "\"\nclick ConMdiFrm.PortIp\nget InternetSoc\nrows StatusLst\n";
    QProcess console;
    console.start(HALVERN_BUILD "/halvern-console", {QString::fromStdString(folder.Path())});
    console.write(input.c_str());
    std::string answers;
    std::size_t seen = 0;
    EXPECT_TRUE(RunUntil([&] {
        answers += console.readAll().toStdString();
        const bool answered = Holds(answers.substr(seen), "StatusLst count=");
        if (answered) seen = answers.size(), console.write("rows StatusLst\n");
        return Said("Q0OWN-7 has heard all 3 lines") && Holds(answers, "Q1CCC");
    })) << output;
    console.write("click ConMdiFrm.PortIp\nget InternetSoc\n");
    console.closeWriteChannel();
    ASSERT_TRUE(RunUntil([&] { return console.state() == QProcess::NotRunning; }));
    answers += console.readAll().toStdString();
    EXPECT_THAT(answers, HasSubstr("InternetSoc open=yes\n"));
    EXPECT_THAT(answers, HasSubstr("\"Q1BBB     >tw\\xF6\""));
    EXPECT_THAT(answers, testing::EndsWith("InternetSoc open=no\n"));
    EXPECT_EQ(console.exitCode(), 0);
    EXPECT_TRUE(RunUntil([&] { return Said("Q0OWN-7 gone"); })) << output;
    EXPECT_TRUE(Said("is Q0OWN-7, unverified")) << output;
}

TEST_F(FeedTest, WhatAVerifiedStationSaysComesToAllTheOthers)
{
    Start({"--check-login", "--rate", "0"});
    Client one(port, "user Q0AAA pass " + APRSPasscode("Q0AAA")), two(port, "user Q0BBB pass " + APRSPasscode("Q0BBB"));
    Client stranger(port, "user Q0CCC pass 12345");
    for (auto* client : {&one, &two, &stranger}) EXPECT_TRUE(client->Hears("Q1CCC>APRS:>three"));
    stranger.Send("Q0CCC>APRS:>from nowhere");
    EXPECT_TRUE(RunUntil([&] { return Said("Q0CCC>APRS:>from nowhere"); }));
    one.Send("Q0AAA>APRS:>hello \xC0\xDB\xFC");
    EXPECT_TRUE(two.Hears("Q0AAA>APRS:>hello \xC0\xDB\xFC"));
    two.Send("Q0BBB>APRS:>and back");
    EXPECT_TRUE(one.Hears("Q0BBB>APRS:>and back"));
    EXPECT_FALSE(Holds(two.heard, "nowhere") || Holds(one.heard, "hello")) << "nobody hears himself";
}

TEST_F(FeedTest, WhoDoesNotReadIsNotWrittenToForEver)
{
    Start({"--rate", "0"});
    Client deaf(port, ""), one(port, "user Q1AAA pass 1");
    deaf.socket.setReadBufferSize(1);
    deaf.Send("user Q3AAA pass 1");
    EXPECT_TRUE(RunUntil([&] { return Said("is Q3AAA"); }));
    for (int i = 0; i < 8000; ++i) one.Send("Q1AAA>APRS:>" + std::string(1900, 'x'));
    EXPECT_TRUE(RunUntil([&] { return Said("Q3AAA does not read"); }));
    one.socket.abort();
    Client two(port, "user Q2AAA pass 1"), three(port, "user Q4AAA pass 1");
    EXPECT_TRUE(RunUntil([&] { return Said("is Q2AAA") && Said("is Q4AAA"); }));
    three.Send("Q4AAA>APRS:>the end");
    EXPECT_TRUE(two.Hears("Q4AAA>APRS:>the end"));
}

} // namespace
} // namespace halvern::test
