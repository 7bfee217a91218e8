// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/QtSocketDevice.h"

#include <chrono>
#include <future>
#include <thread>

#include <QDeadlineTimer>
#include <QHostAddress>

#include <netdb.h>

namespace halvern {
namespace {

/// How long a close waits for bytes that the other end has not taken yet, in ms.
constexpr int LastBytesMs = 200;

QList<QHostAddress> LookUp(const std::string& host)
{
    QList<QHostAddress> addresses;
    addrinfo hints{};
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (::getaddrinfo(host.c_str(), nullptr, &hints, &found) != 0) return addresses;
    for (const auto* entry = found; entry != nullptr; entry = entry->ai_next)
        addresses.append(QHostAddress(entry->ai_addr));
    ::freeaddrinfo(found);
    return addresses;
}

/// The addresses of a host. The resolver knows no time limit, so a slow one is left to itself on a thread of its own.
QList<QHostAddress> AddressesOf(const std::string& host, const QDeadlineTimer& deadline)
{
    if (const QHostAddress literal(QString::fromStdString(host)); !literal.isNull()) return {literal};
    std::packaged_task<QList<QHostAddress>()> task([host] { return LookUp(host); });
    auto answer = task.get_future();
    std::thread(std::move(task)).detach();
    if (answer.wait_for(std::chrono::milliseconds(deadline.remainingTime())) != std::future_status::ready) return {};
    return answer.get();
}

} // namespace

QtSocketDevice::QtSocketDevice(Socket& port) : port(port), feed(port, link)
{
    port.device = this;
    link.setReadBufferSize(EventFeed::LineBuffer);
    // A connection that breaks while the station writes closes itself, and its buffer goes with it.
    QObject::connect(&link, &QTcpSocket::aboutToClose, &link, [this] { feed.TakeRest(); });
    QObject::connect(
        &link, &QTcpSocket::disconnected, &link, [this] { PeerClosed(); }, Qt::QueuedConnection);
}

QtSocketDevice::~QtSocketDevice()
{
    Disconnect();
    port.device = nullptr;
}

int QtSocketDevice::Connect(const std::string& host, int portNumber, int timeoutMs)
{
    Disconnect();
    if (portNumber < 1 || portNumber > 65535) return 1 + QAbstractSocket::UnsupportedSocketOperationError;
    const QDeadlineTimer deadline(timeoutMs);
    const auto addresses = AddressesOf(host, deadline);
    if (addresses.isEmpty()) return 1 + QAbstractSocket::HostNotFoundError;
    for (qsizetype i = 0; i < addresses.size(); ++i) {
        link.connectToHost(addresses[i], static_cast<quint16>(portNumber));
        const auto share = deadline.remainingTime() / (addresses.size() - i);
        open = link.waitForConnected(static_cast<int>(share));
        if (open) break;
        link.abort();
    }
    if (!open) return 1 + std::max<int>(0, link.error());
    link.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    feed.Start();
    return 0;
}

void QtSocketDevice::Disconnect()
{
    open = false;
    feed.Drop();
    link.flush();
    link.disconnectFromHost();
    if (link.state() != QAbstractSocket::UnconnectedState) link.waitForDisconnected(LastBytesMs);
    link.abort();
}

void QtSocketDevice::Write(std::string_view bytes)
{
    link.write(bytes.data(), static_cast<qint64>(bytes.size()));
    link.flush();
}

void QtSocketDevice::PeerClosed()
{
    if (!open || link.state() == QAbstractSocket::ConnectedState) return; // our own close, or an older connection's
    open = false;
    feed.Finish([this] { port.HungUp(); });
}

} // namespace halvern
