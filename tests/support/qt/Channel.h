// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <QTcpServer>
#include <QTcpSocket>

#include "platform/EndMark.h"
#include "platform/qt/QtSocketDevice.h"
#include "support/Station.h"

namespace halvern::test {

/// A radio channel as KISS engines on TCP serve it: the frame that one station sends comes to every other one in reach.
class Channel {
public:
    Channel()
    {
        server.listen(QHostAddress::LocalHost);
        QObject::connect(&server, &QTcpServer::newConnection, [this] { Welcome(); });
    }
    int Port() const { return server.serverPort(); }

    /// Who hears whom; stations count from 0 in the order in which they connected.
    std::function<bool(std::size_t from, std::size_t to)> Reaches = [](std::size_t, std::size_t) { return true; };
    /// Every frame so far, as its line.
    std::vector<std::string> Lines;

private:
    struct Link {
        std::unique_ptr<QTcpSocket> socket;
        EndMarkCutter cutter{KissFrames};
    };
    void Welcome()
    {
        while (auto* socket = server.nextPendingConnection()) {
            const auto number = links.size();
            socket->setParent(nullptr);
            socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
            auto& link = links.emplace_back();
            link.socket.reset(socket);
            QObject::connect(socket, &QTcpSocket::readyRead, [this, number, socket] {
                links[number].cutter.Take(socket->readAll().toStdString());
                while (const auto frame = links[number].cutter.Next()) HandOn(number, *frame);
            });
        }
    }
    void HandOn(std::size_t from, const std::string& frame)
    {
        Lines.push_back(LineOfFrame(frame));
        for (std::size_t to = 0; to < links.size(); ++to) {
            if (to == from || !Reaches(from, to)) continue;
            links[to].socket->write(frame.data(), static_cast<qint64>(frame.size()));
            links[to].socket->flush();
        }
    }

    QTcpServer server;
    std::vector<Link> links;
};

/// A station on a channel, by its real sound card port.
struct ChannelStation : Station {
    ChannelStation(const Channel& channel, const std::string& call)
    {
        SetUp();
        SetCall(call);
        main.SoundSoc.RemotePort = channel.Port();
        main.SoundCardMenu.Click();
        main.Timer2.Stop(); // the beacons are told elsewhere
    }
    MainForm& main = halvern.ConMdiFrm;
    const List& messages = halvern.MessageFrm.MsgToYouLst;
    QtSocketDevice real{main.SoundSoc};
};

} // namespace halvern::test
