// SPDX-License-Identifier: GPL-3.0-or-later
// From real bytes on a real socket to the stores: however the network cuts or joins them, the stores are the same.
#include <algorithm>
#include <fstream>

#include <gtest/gtest.h>

#include <QTcpServer>
#include <QTcpSocket>

#include "platform/Text.h"
#include "platform/qt/QtSocketDevice.h"
#include "support/Station.h"
#include "support/Stores.h"
#include "support/qt/Application.h"

namespace halvern {
namespace {

using test::RunUntil;
using test::Station;
using test::StoresOf;
using Lines = std::vector<std::string>;

/// The first 1,000 lines of the demonstration that a frame can carry as well as a line.
Lines Packets()
{
    Lines lines;
    std::ifstream file(test::DataFolder() + "/demo/world.tnc2", std::ios::binary);
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
    Lines Stores(int raws)
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

/// Sends the pieces in every way, each time to a fresh station, and compares with what the lines alone leave.
void ExpectSameStores(Socket MainForm::*which, const Lines& pieces, const Lines& expected, int raws)
{
    std::string stream;
    for (const auto& piece : pieces) stream += piece;
    {
        Link link(which);
        link.Send(stream);
        EXPECT_EQ(link.Stores(raws), expected) << "in one write";
    }
    {
        Link link(which);
        for (const char byte : stream) link.Send({&byte, 1});
        EXPECT_EQ(link.Stores(raws), expected) << "a byte at a time";
    }
    // Each round cuts every piece once, at its own column: over all rounds every position of the stream is a cut.
    std::size_t longest = 0;
    for (const auto& piece : pieces) longest = std::max(longest, piece.size());
    for (std::size_t column = 1; column < longest; ++column) {
        Link link(which);
        std::string rest;
        for (const auto& piece : pieces) {
            if (piece.size() <= column) {
                rest += piece;
                continue;
            }
            link.Send(rest + piece.substr(0, column));
            rest = piece.substr(column);
        }
        link.Send(rest);
        ASSERT_EQ(link.Stores(raws), expected) << "cut at column " << column;
    }
}

TEST(StreamTest, LinesFromTheInternetLeaveTheSameStoresHoweverTheyAreCut)
{
    const auto lines = Packets();
    ASSERT_EQ(lines.size(), 1000u);
    Station direct;
    direct.SetUp();
    Lines pieces;
    for (const auto& line : lines) {
        direct.Hear(line, "TCPIP");
        pieces.push_back(line + "\r\n");
    }
    ExpectSameStores(&MainForm::InternetSoc, pieces, StoresOf(direct.halvern),
                     direct.halvern.TerminalFrm.RawPacketLst.Count());
}

TEST(StreamTest, FramesFromTheSoundPortLeaveTheSameStoresHoweverTheyAreCut)
{
    const auto lines = Packets();
    ASSERT_EQ(lines.size(), 1000u);
    Station direct;
    direct.SetUp();
    Lines pieces;
    for (const auto& line : lines) {
        const auto frame = test::FrameOf(line);
        direct.Hear(test::LineOfFrame(frame), "SOUND");
        pieces.push_back(frame);
    }
    ExpectSameStores(&MainForm::SoundSoc, pieces, StoresOf(direct.halvern),
                     direct.halvern.TerminalFrm.RawPacketLst.Count());
}

} // namespace
} // namespace halvern
