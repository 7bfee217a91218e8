// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/QtSocketDevice.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QTcpServer>
#include <QTimer>

#include "support/qt/Application.h"
#include "support/qt/SilentServer.h"

namespace halvern {
namespace {

using test::RunUntil;
using Events = std::vector<std::string>;

struct PortForm : Form {
    explicit PortForm(Controls& all) : Form(all, "PortFrm", "Ports") {}
    Socket Lines{*this, "Lines", "127.0.0.1", 0, 1000, Greeting};
    Socket Other{*this, "Other", "127.0.0.1", 0, 10000, Greeting};
    static constexpr Framing Greeting{.mark = '\n', .longest = 2000, .greetingMs = 50};
};

/// A server on this machine, and a port of ours that notes its events.
struct SocketTest : ::testing::Test {
    void SetUp() override { ASSERT_TRUE(server.listen(QHostAddress::LocalHost)); }

    void Open(Socket& socket)
    {
        events.clear();
        socket.RemotePort = server.serverPort();
        socket.OnReceive = [&] { events.push_back(socket.ReadAll()); };
        ASSERT_EQ(socket.Connect(), 0);
        ASSERT_TRUE(RunUntil([&] { return server.hasPendingConnections(); }));
        peer.reset(server.nextPendingConnection());
        peer->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    }
    void Send(std::string_view bytes) const
    {
        peer->write(bytes.data(), static_cast<qint64>(bytes.size()));
        peer->flush();
        QApplication::processEvents();
    }
    Events Received(std::size_t count)
    {
        EXPECT_TRUE(RunUntil([&] { return events.size() >= count; }));
        return events;
    }

    Controls all;
    PortForm form{all};
    QtSocketDevice lines{form.Lines}, other{form.Other};
    QTcpServer server;
    std::unique_ptr<QTcpSocket> peer;
    Events events;
};

TEST_F(SocketTest, AQuietEndsTheGreetingAndNothingElse)
{
    Open(form.Lines);
    Send("# no line end");
    EXPECT_EQ(Received(1), Events{"# no line end"});
    Send("ha");
    auto first = std::move(peer);
    Open(form.Other);
    Send("# a later quiet");
    EXPECT_EQ(Received(1), Events{"# a later quiet"}) << "the first port has been quiet for longer";
    peer = std::move(first);
    events = {"# no line end"};
    Send("lf\nhal");
    EXPECT_EQ(Received(2), (Events{"# no line end", "half\n"}));
    peer->close();
    EXPECT_TRUE(RunUntil([&] { return !form.Lines.Connected(); }));
    QApplication::processEvents();
    EXPECT_EQ(events.size(), 2U) << "what is unfinished at a close belongs to nobody";
}

TEST_F(SocketTest, AHangUpComesAfterTheLastBytes)
{
    form.Lines.OnDisconnect = [&] {
        EXPECT_FALSE(form.Lines.Connected());
        events.push_back("hung up");
    };
    Open(form.Lines);
    Events expected;
    for (int i = 0; i < 100000; ++i) expected.push_back("line " + std::to_string(i) + "\n");
    for (const auto& line : expected) peer->write(line.c_str());
    peer->disconnectFromHost();
    expected.push_back("hung up");
    EXPECT_EQ(Received(expected.size()), expected);
    form.Lines.Write("lost"); // nothing must come of it
    Open(form.Lines);
    Send("again\n");
    EXPECT_EQ(Received(1), Events{"again\n"});
    peer->close();
    EXPECT_EQ(Received(2), (Events{"again\n", "hung up"})) << "and no empty line";
}

TEST_F(SocketTest, ABreakDuringAWriteLosesNothingThatCameBefore)
{
    Open(form.Lines);
    form.Lines.OnReceive = [&] {
        events.push_back(form.Lines.ReadAll());
        peer->abort();
        for (int i = 0; i < 3; ++i) form.Lines.Write("x");
    };
    std::string lines;
    for (int i = 0; i < 5000; ++i) lines += "line\n";
    Send(lines);
    EXPECT_EQ(Received(5000).size(), 5000U);
}

TEST_F(SocketTest, AStreamIsReadNoFasterThanTheStationTakesIt)
{
    QByteArray stream;
    for (int i = 0; i < 1000000; ++i) stream += "line\n";
    QBuffer line(&stream);
    line.open(QIODevice::ReadOnly);
    EventFeed feed(form.Lines, line);
    qint64 taken = 0, ahead = 0;
    form.Lines.OnReceive = [&] {
        taken += static_cast<qint64>(form.Lines.ReadAll().size());
        ahead = std::max(ahead, line.pos() - taken);
    };
    feed.Start();
    EXPECT_TRUE(RunUntil([&] { return taken == stream.size(); }));
    EXPECT_LE(ahead, EventFeed::LineBuffer);
}

TEST_F(SocketTest, NothingIsDeliveredOnceThePortIsClosed)
{
    form.Lines.OnDisconnect = [&] { events.push_back("hung up"); };
    Open(form.Lines);
    form.Lines.OnReceive = [&] {
        events.push_back(form.Lines.ReadAll());
        form.Lines.Disconnect();
    };
    Send("one\ntwo\nthree\nre");
    EXPECT_TRUE(RunUntil([&] { return peer->state() == QAbstractSocket::UnconnectedState; }));
    EXPECT_EQ(events, Events{"one\n"});
    Open(form.Lines);
    Send("st\n");
    EXPECT_EQ(Received(1), Events{"st\n"}) << "what an older connection left belongs to nobody";
}

TEST_F(SocketTest, ADialogInAHandlerDoesNotStopThePortNorMixItsOrder)
{
    Open(form.Lines);
    form.Lines.OnReceive = [&] {
        events.push_back(form.Lines.ReadAll());
        if (events.size() != 1) return;
        peer->write("three\nfour\n");
        EXPECT_TRUE(RunUntil([&] { return events.size() >= 4; }));
    };
    Send("one\ntwo\n");
    EXPECT_EQ(Received(4), (Events{"one\n", "two\n", "three\n", "four\n"}));
}

TEST_F(SocketTest, AConnectThatFailsSaysWhyInItsTime)
{
    const test::SilentServer silent;
    const int closed = server.serverPort();
    server.close();
    const struct {
        const char* host;
        int port;
        const char* why;
    } cases[] = {{"127.0.0.1", closed, "the connection was refused"},
                 {"no such host", closed, "the name is not known"},
                 {"", closed, "the name is not known"},
                 {"127.0.0.1", silent.Port(), "no answer in 0.2 s"},
                 {"127.0.0.1", 70000, "a port is a number from 1 to 65535"}};
    form.Lines.TimeoutMs = 200;
    for (const auto& each : cases) {
        form.Lines.HostName = each.host;
        form.Lines.RemotePort = each.port;
        EXPECT_NE(form.Lines.Connect(), 0) << each.host;
        EXPECT_EQ(form.Lines.WhyNot(), each.why) << each.host;
        EXPECT_FALSE(form.Lines.Connected());
    }
}

TEST_F(SocketTest, ATryLetsTheOtherPortsHearAndCanBeGivenUp)
{
    const test::SilentServer silent;
    Open(form.Lines);
    form.Other.RemotePort = silent.Port();
    form.Lines.OnReceive = [&] {
        events.push_back(form.Lines.ReadAll());
        EXPECT_TRUE(form.Other.Connecting() && !form.Other.Connected());
        EXPECT_NE(form.Other.Connect(), 0) << "one try at a time";
        form.Other.Disconnect();
    };
    QTimer::singleShot(0, [&] { Send("line\n"); });
    EXPECT_EQ(form.Other.Connect(), Socket::Stopped);
    EXPECT_EQ(events, Events{"line\n"});
    form.Other.RemotePort = server.serverPort();
    EXPECT_EQ(form.Other.Connect(), 0);
}

TEST_F(SocketTest, BytesGoOutAsTheyAreAndBeforeTheClose)
{
    Open(form.Lines);
    std::string bytes;
    for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
    form.Lines.Write(bytes);
    form.Lines.Disconnect();
    EXPECT_TRUE(RunUntil([&] { return peer->state() == QAbstractSocket::UnconnectedState; }));
    EXPECT_EQ(peer->readAll().toStdString(), bytes);
}

} // namespace
} // namespace halvern
