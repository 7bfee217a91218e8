// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHostAddress>
#include <QTcpSocket>

#include "platform/Ports.h"
#include "platform/qt/EventFeed.h"

namespace halvern {

/// A real TCP connection behind a Socket.
class QtSocketDevice final : public SocketDevice {
public:
    explicit QtSocketDevice(Socket& port);
    ~QtSocketDevice() override;
    QtSocketDevice(const QtSocketDevice&) = delete;
    QtSocketDevice& operator=(const QtSocketDevice&) = delete;

    /// The time covers the name's look-up and every address that the name has.
    std::optional<PortError> Connect(const std::string& host, int port, int timeoutMs) override;
    void Disconnect() override;
    bool Connected() const override { return open && link.state() == QAbstractSocket::ConnectedState; }
    void Write(std::string_view bytes) override;

private:
    class Patience;
    std::optional<PortError> Try(const QList<QHostAddress>& addresses, int port, Patience& patience);
    void Wake() const;
    void PeerClosed();

    Socket& port;
    Patience* trying = nullptr; ///< while Connect runs
    bool open = false;          ///< connected by us, and neither end has closed since
    QTcpSocket link;
    EventFeed feed;
};

} // namespace halvern
