// SPDX-License-Identifier: GPL-3.0-or-later
// From real bytes on a real socket to the stores: however the network cuts or joins them, the stores are the same.
#include <algorithm>
#include <fstream>

#include <QTcpServer>
#include <QTcpSocket>

#include "platform/qt/QtSocketDevice.h"
#include "support/StationTest.h"
#include "support/qt/Application.h"

namespace halvern::test {
namespace {

/// The first 1,000 lines of the demonstration that a frame can carry as well as a line.
Strings Packets()
{
    Strings lines;
    std::ifstream file(DataFolder() + "/demo/world.tnc2", std::ios::binary);
    for (std::string line; lines.size() < 1000 && std::getline(file, line);)
        if (!line.empty() && line.front() != '#' && !Holds(line, ",q")) lines.push_back(line);
    return lines;
}

/// A station with a real socket, and the server at its other end.
class Link {
public:
    explicit Link(Socket MainForm::*which) : port(station.halvern.ConMdiFrm.*which), device(port)
    {
        station.SetUp();
        EXPECT_TRUE(server.listen(QHostAddress::LocalHost));
        auto& halvern = station.halvern;
        halvern.SetUpfrm.IntDomainCombo.SetText("127.0.0.1");
        halvern.SetUpfrm.APRServePortTxt.SetText(std::to_string(server.serverPort()));
        port.RemotePort = server.serverPort();
        const bool internet = &port == &halvern.ConMdiFrm.InternetSoc;
        (internet ? halvern.ConMdiFrm.PortIp : halvern.ConMdiFrm.SoundCardMenu).Click();
        EXPECT_TRUE(RunUntil([&] { return server.hasPendingConnections(); }));
        peer.reset(server.nextPendingConnection());
        peer->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        if (!internet) return;
        peer->write("# hello\r\n");
        EXPECT_TRUE(RunUntil([&] { return peer->canReadLine(); }));
    }
    void Send(std::string_view bytes) const
    {
        if (bytes.empty()) return;
        peer->write(bytes.data(), static_cast<qint64>(bytes.size()));
        peer->flush();
        QApplication::processEvents();
    }
    /// The stores once the last packet has come.
    Strings Stores(int raws) const
    {
        const auto& raw = station.halvern.TerminalFrm.RawPacketLst;
        EXPECT_TRUE(RunUntil([&] { return raw.Count() >= raws; }));
        return StoresOf(station.halvern);
    }

private:
    Station station;
    Socket& port;
    QtSocketDevice device;
    QTcpServer server;
    std::unique_ptr<QTcpSocket> peer;
};

struct Stream : testing::TestWithParam<Socket MainForm::*> {};

TEST_P(Stream, LeavesTheSameStoresHoweverTheNetworkCutsIt)
{
    const bool internet = GetParam() == &MainForm::InternetSoc;
    Station direct;
    direct.SetUp();
    Strings pieces;
    std::size_t longest = 0;
    for (const auto& line : Packets()) {
        pieces.push_back(internet ? line + "\r\n" : FrameOf(line));
        longest = std::max(longest, pieces.back().size());
        direct.Hear(internet ? line : LineOfFrame(pieces.back()), internet ? "TCPIP" : "SOUND");
    }
    ASSERT_EQ(pieces.size(), 1000U);
    const auto expected = StoresOf(direct.halvern);
    const int raws = direct.halvern.TerminalFrm.RawPacketLst.Count();
    {
        const Link link(GetParam());
        for (const auto& piece : pieces)
            for (const char byte : piece) link.Send({&byte, 1});
        EXPECT_EQ(link.Stores(raws), expected) << "a byte at a time";
    }
    // Each round cuts every piece once, at its own column: over all rounds every position of the stream is a cut. In
    // the last one the stream is a single write.
    for (std::size_t column = 1; column <= longest; ++column) {
        const Link link(GetParam());
        std::string rest;
        for (const auto& piece : pieces) {
            rest += piece;
            if (piece.size() <= column) continue;
            link.Send({rest.data(), rest.size() - piece.size() + column});
            rest = piece.substr(column);
        }
        link.Send(rest);
        ASSERT_EQ(link.Stores(raws), expected) << "cut at column " << column;
    }
}

INSTANTIATE_TEST_SUITE_P(Ports, Stream, testing::Values(&MainForm::InternetSoc, &MainForm::SoundSoc));

} // namespace
} // namespace halvern::test
