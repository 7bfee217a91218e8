// SPDX-License-Identifier: GPL-3.0-or-later
#include <memory>

#include <QProcess>
#include <QTcpSocket>

#include "platform/qt/QtSocketDevice.h"
#include "protocol/Passcode.h"
#include "support/Console.h"
#include "support/StationTest.h"
#include "support/qt/Application.h"

namespace halvern::test {
namespace {

using testing::Not;

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

/// A station of ours, logged in by its real Internet port.
struct Member {
    Member(int port, const std::string& call, const std::string& code)
    {
        station.SetUp();
        station.SetCall(call);
        auto& setUp = station.halvern.SetUpfrm;
        setUp.IntDomainCombo.SetText("127.0.0.1");
        setUp.APRServePortTxt.SetText(std::to_string(port));
        setUp.APRServePassTxt.SetText(code);
        setUp.APRServeFilterTxt.SetText("r/40/-73/100");
        main.PortIp.Click();
        EXPECT_TRUE(main.PortIp.Checked());
        EXPECT_TRUE(RunUntil([&] { return raw.Count() == 3; })) << "the file";
    }
    void Send(const std::string& to, const std::string& text)
    {
        station.Type(to, text);
        station.time.Wait(1);
    }
    /// Waits for a row among the station's own messages.
    bool Shows(const std::string& row) const
    {
        return RunUntil([&] { return messages.IndexOf(row) != NotFound; });
    }
    Station station;
    MainForm& main = station.halvern.ConMdiFrm;
    const List& raw = station.halvern.TerminalFrm.RawPacketLst;
    const List& messages = station.halvern.MessageFrm.MsgToYouLst;
    QtSocketDevice real{main.InternetSoc};
};

TEST_F(FeedTest, ALiveConsoleHearsTheFile)
{
    Start({"--rate", "0"});
    LinkData(folder);
    const auto input = *DiskFiles().Read(HALVERN_SOURCE "/tests/stories/parts/set-up.txt") +
                       "set SetUpfrm.IntDomainCombo \"127.0.0.1\"\nset SetUpfrm.APRServePortTxt \"" +
                       std::to_string(port) +
                       "\"\nclick ConMdiFrm.PortIp\nget InternetSoc\nwait 2000\nrows StatusLst\n" +
                       "click ConMdiFrm.PortIp\nget InternetSoc\n";
    QProcess console;
    console.start(HALVERN_BUILD "/halvern-console", {QString::fromStdString(folder.Path())});
    console.write(input.c_str());
    console.closeWriteChannel();
    ASSERT_TRUE(RunUntil([&] { return console.state() == QProcess::NotRunning; }, 30000));
    const auto answers = console.readAll().toStdString();
    EXPECT_THAT(answers, HasSubstr("InternetSoc open=yes\n"));
    EXPECT_THAT(answers, HasSubstr("\"Q1BBB     >tw\\xF6\""));
    EXPECT_THAT(answers, testing::EndsWith("InternetSoc open=no\n"));
    EXPECT_EQ(console.exitCode(), 0);
    for (const auto* words : {"is Q0OWN-7, unverified", "Q0OWN-7 has heard all 3 lines", "Q0OWN-7 gone"})
        EXPECT_TRUE(RunUntil([&] { return Said(words); })) << output;
}

TEST_F(FeedTest, StationsOfOursTalkThroughIt)
{
    Start({"--check-login", "--rate", "0"});
    Member one(port, "Q0AAA", APRSPasscode("Q0AAA")), two(port, "Q0BBB", APRSPasscode("Q0BBB"));
    Member stranger(port, "Q0CCC", "12345");
    one.Send("Q0BBB", "hello \xC0\xDB\xFC");
    EXPECT_TRUE(two.Shows("Q0AAA>Q0BBB:1.hello \xC0\xDB\xFC"));
    EXPECT_TRUE(one.Shows("Q0AAA>Q0BBB:1.hello \xC0\xDB\xFC MESSAGE RECEIVED"));
    two.Send("Q0AAA", "and back");
    EXPECT_TRUE(one.Shows("Q0BBB>Q0AAA:1.and back"));
    EXPECT_TRUE(two.Shows("Q0BBB>Q0AAA:1.and back MESSAGE RECEIVED"));

    stranger.Send("Q0AAA", "from nowhere");
    EXPECT_TRUE(RunUntil([&] { return Said("Q0CCC>APHV01,TCPIP*::Q0AAA    :from nowhere{1"); }));
    RunFor(50);
    EXPECT_THAT(Station::Rows(one.raw), Not(Contains(HasSubstr("Q0CCC"))));
    EXPECT_THAT(Station::Rows(one.raw), Not(Contains("Q0AAA>APHV01,TCPIP*:>here"))) << "nobody hears himself";
    EXPECT_EQ(stranger.station.halvern.MessageFrm.OutMsg.Count(), 1) << "nobody has acked it";
}

TEST_F(FeedTest, TheFileIsPlayedAtItsRateAndInALoop)
{
    Start({"--rate", "20", "--loop"});
    Client client(port, "user Q2AAA pass -1");
    EXPECT_TRUE(client.Hears("# logresp Q2AAA unverified, server HALVERN-FEED"));
    RunFor(1000);
    client.Hears("");
    const auto lines = std::count(client.heard.begin(), client.heard.end(), '\n') - 2;
    EXPECT_GE(lines, 16);
    EXPECT_LE(lines, 24);
    EXPECT_FALSE(Said("has heard all"));
}

TEST_F(FeedTest, WhoDoesNotReadIsNotWrittenToForEver)
{
    Start({"--rate", "0"});
    Client deaf(port, ""), one(port, "user Q1AAA pass 1");
    deaf.socket.setReadBufferSize(1);
    deaf.Send("user Q3AAA pass 1");
    EXPECT_TRUE(RunUntil([&] { return Said("is Q3AAA"); }));
    for (int i = 0; i < 8000; ++i) one.Send("Q1AAA>APRS:>" + std::string(1900, 'x'));
    EXPECT_TRUE(RunUntil([&] { return Said("Q3AAA does not read"); }, 30000));
    one.socket.abort();
    Client two(port, "user Q2AAA pass 1"), three(port, "user Q4AAA pass 1");
    EXPECT_TRUE(RunUntil([&] { return Said("is Q2AAA") && Said("is Q4AAA"); }, 30000));
    three.Send("Q4AAA>APRS:>the end");
    EXPECT_TRUE(two.Hears("Q4AAA>APRS:>the end"));
}

TEST_F(FeedTest, NothingIsPlayedToWhoDoesNotLogIn)
{
    Start({"--rate", "0"});
    Client client(port, "hello");
    EXPECT_TRUE(client.Hears("# invalid login"));
    client.Send("Q2AAA>APRS:>no");
    EXPECT_TRUE(RunUntil([&] { return Said("invalid login: Q2AAA"); }));
    client.Send("user Q2AAA pass 1");
    EXPECT_TRUE(client.Hears("Q1CCC>APRS:>three"));
}

} // namespace
} // namespace halvern::test
