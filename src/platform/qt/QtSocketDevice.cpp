// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/QtSocketDevice.h"

#include <functional>

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QHostInfo>
#include <QScopeGuard>
#include <QTimer>

#include "platform/Text.h"

namespace halvern {
namespace {

/// How long a close waits for bytes that the other end has not taken yet, in ms.
constexpr int LastBytesMs = 200;

PortError Failure(int number, const std::string& why)
{
    return {number, {}, why};
}

PortError NameFailure(const QHostInfo& info)
{
    return Failure(1 + QAbstractSocket::HostNotFoundError, info.error() == QHostInfo::HostNotFound
                                                               ? "the name is not known"
                                                               : info.errorString().toStdString());
}

} // namespace

/// The waits of one Connect: other events run, and the wait ends early where it is stopped or the program ends.
class QtSocketDevice::Patience {
public:
    explicit Patience(int milliseconds) : deadline(milliseconds), text(ConsoleNumber(milliseconds / 1000.0) + " s")
    {
        alarm.setSingleShot(true);
        QObject::connect(&alarm, &QTimer::timeout, &loop, [this] { Wake(); });
    }
    /// Waits while something holds, at most one of `shares` shares of the time that is left.
    void While(const std::function<bool()>& holds, qsizetype shares = 1)
    {
        alarm.start(static_cast<int>(deadline.remainingTime() / shares));
        while (holds() && alarm.isActive() && !stopped)
            if (loop.exec() != Woken) stopped = true; // the program ends
    }
    /// Something has changed that While looks at.
    void Wake() { loop.exit(Woken); }
    void Stop()
    {
        stopped = true;
        Wake();
    }
    bool Stopped() const { return stopped; }
    PortError NoAnswer() const { return Failure(1 + QAbstractSocket::SocketTimeoutError, "no answer in " + text); }

private:
    static constexpr int Woken = 1000;
    QDeadlineTimer deadline;
    std::string text;
    QEventLoop loop;
    QTimer alarm;
    bool stopped = false;
};

QtSocketDevice::QtSocketDevice(Socket& port) : port(port), feed(port, link)
{
    port.device = this;
    link.setReadBufferSize(EventFeed::LineBuffer);
    for (const auto signal : {&QTcpSocket::connected, &QTcpSocket::disconnected})
        QObject::connect(&link, signal, &link, [this] { Wake(); });
    QObject::connect(&link, &QTcpSocket::errorOccurred, &link, [this] { Wake(); });
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

std::optional<PortError> QtSocketDevice::Connect(const std::string& host, int portNumber, int timeoutMs)
{
    Disconnect();
    if (portNumber < 1 || portNumber > 65535)
        return Failure(1 + QAbstractSocket::UnsupportedSocketOperationError, "a port is a number from 1 to 65535");
    Patience patience(timeoutMs);
    trying = &patience;
    const auto done = qScopeGuard([this] { trying = nullptr; });
    std::optional<QHostInfo> found;
    QObject asker; // an answer that comes later finds nobody
    const int lookUp = QHostInfo::lookupHost(QString::fromStdString(host), &asker, [&](const QHostInfo& info) {
        found = info;
        patience.Wake();
    });
    patience.While([&] { return !found; });
    QHostInfo::abortHostLookup(lookUp);
    auto error = !found                       ? patience.NoAnswer()
                 : found->addresses().empty() ? NameFailure(*found)
                                              : Try(found->addresses(), portNumber, patience);
    if (patience.Stopped()) error = Failure(Socket::Stopped, "stopped");
    if (error) {
        link.abort();
        return error;
    }
    link.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    link.setSocketOption(QAbstractSocket::KeepAliveOption, 1);
    open = true;
    feed.Start();
    return {};
}

/// Tries one address after the other.
std::optional<PortError> QtSocketDevice::Try(const QList<QHostAddress>& addresses, int portNumber, Patience& patience)
{
    std::optional<PortError> error;
    for (qsizetype i = 0; i < addresses.size() && !patience.Stopped(); ++i) {
        const auto pending = [this] {
            return link.state() != QAbstractSocket::ConnectedState && link.state() != QAbstractSocket::UnconnectedState;
        };
        link.connectToHost(addresses[i], static_cast<quint16>(portNumber));
        patience.While(pending, addresses.size() - i);
        if (link.state() == QAbstractSocket::ConnectedState) return {};
        const auto number = link.error();
        const auto words = number == QAbstractSocket::ConnectionRefusedError ? "the connection was refused"
                                                                             : link.errorString().toStdString();
        error = pending() ? patience.NoAnswer() : Failure(1 + std::max<int>(0, number), words);
        link.abort();
    }
    return error;
}

void QtSocketDevice::Wake() const
{
    if (trying != nullptr) trying->Wake();
}

void QtSocketDevice::Disconnect()
{
    if (trying != nullptr) return trying->Stop();
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
    const bool closed = link.error() == QAbstractSocket::RemoteHostClosedError;
    const auto why = closed ? "the other end has closed" : link.errorString().toStdString();
    feed.Finish([this, why] { port.Lost(why); });
}

} // namespace halvern
