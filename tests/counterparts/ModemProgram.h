// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <QTcpServer>
#include <QTcpSocket>

namespace halvern::test {

/// A stand-in for a PSK63 modem program: what it hears on the air goes to the station that is connected, and what that
/// hands it for the air is kept. On port 3122 it speaks in single characters, on any other in lines.
class ModemProgram {
public:
    explicit ModemProgram(quint16 port) : characters(port == 3122)
    {
        Listening = server.listen(QHostAddress::LocalHost, port);
        QObject::connect(&server, &QTcpServer::newConnection, [this] {
            link.reset(server.nextPendingConnection());
            waiting.clear();
            link->setSocketOption(QAbstractSocket::LowDelayOption, 1);
            QObject::connect(link.get(), &QTcpSocket::readyRead, [this] { Take(link->readAll().toStdString()); });
        });
    }
    bool Connected() const { return link && link->state() == QAbstractSocket::ConnectedState; }

    /// The air brings these; the network takes them in pieces of so many bytes.
    void Hear(std::string_view text, std::size_t piece)
    {
        std::string bytes(characters ? "" : text);
        if (characters)
            for (const char character : text) bytes += {'\x1D', character};
        for (std::size_t at = 0; at < bytes.size(); at += piece) {
            link->write(bytes.substr(at, piece).c_str(), static_cast<qint64>(std::min(piece, bytes.size() - at)));
            link->flush();
        }
    }
    /// The operator ends it, in the middle of a character.
    void End()
    {
        link->write("\x1D");
        link->disconnectFromHost();
    }

    bool Listening = false;
    std::vector<std::string> Sent; ///< on the air: a buffer, or a line

private:
    void Take(std::string bytes)
    {
        waiting += bytes;
        while (!waiting.empty() && (characters ? TakeOrder() : TakeLine())) {
        }
    }
    bool TakeLine()
    {
        const auto end = waiting.find("\r\n");
        if (end == std::string::npos) return false;
        Sent.push_back(waiting.substr(0, end));
        waiting.erase(0, end + 2);
        return true;
    }
    /// A character for the buffer, or the command to send it. What is neither stays in front, and nothing goes on.
    bool TakeOrder()
    {
        if (waiting.starts_with("\x1ATX\x1B")) {
            Sent.push_back(std::exchange(buffer, {}));
            waiting.erase(0, 4);
            link->write("\x1C");
            return true;
        }
        if (waiting[0] != '\x19' || waiting.size() < 2) return false;
        buffer += waiting[1];
        waiting.erase(0, 2);
        return true;
    }

    const bool characters;
    QTcpServer server;
    std::unique_ptr<QTcpSocket> link;
    std::string waiting, buffer;
};

} // namespace halvern::test
