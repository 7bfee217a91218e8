// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/EventFeed.h"

#include <utility>

#include <QElapsedTimer>

namespace halvern {
namespace {

/// How long events are delivered before the windows get their turn, in ms: a burst does not cost a repaint an event.
constexpr int LongestTurn = 20;
/// Bytes that are cut at a time.
constexpr qint64 ReadAtOnce = 16384;

std::string_view BytesOf(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

} // namespace

EventFeed::EventFeed(Port& port, QIODevice& line) : port(port), line(line), cutter(port.Framing)
{
    quiet.setSingleShot(true);
    quiet.setTimerType(Qt::PreciseTimer);
    turn.setSingleShot(true);
    turn.setInterval(0);
    QObject::connect(&turn, &QTimer::timeout, [this] { Pump(); });
    QObject::connect(&quiet, &QTimer::timeout, [this] {
        greeting = false;
        this->port.Arrived(cutter.Rest());
    });
    // Queued, because a handler may open a dialog, and a line does not signal anew from within its own signal.
    QObject::connect(
        &line, &QIODevice::readyRead, &turn, [this] { Pump(); }, Qt::QueuedConnection);
}

void EventFeed::Start()
{
    Drop();
    cutter = EndMarkCutter(port.Framing);
    listening = true;
    greeting = port.Framing.greetingMs > 0;
    turn.start(); // bytes may have come already
}

void EventFeed::TakeRest()
{
    if (listening && line.bytesAvailable() > 0) cutter.Take(BytesOf(line.read(line.bytesAvailable())));
}

void EventFeed::Finish(std::function<void()> then)
{
    atEnd = std::move(then);
    Pump();
}

void EventFeed::Drop()
{
    listening = false;
    quiet.stop();
    turn.stop();
    atEnd = nullptr;
}

std::optional<std::string> EventFeed::Next()
{
    for (;;) {
        if (auto event = cutter.Next()) return event;
        const auto bytes = line.isOpen() ? line.read(ReadAtOnce) : QByteArray();
        if (bytes.isEmpty()) return {};
        cutter.Take(BytesOf(bytes));
    }
}

void EventFeed::Pump()
{
    if (!listening) return;
    QElapsedTimer clock;
    clock.start();
    quiet.stop();
    while (const auto event = Next()) {
        turn.start(); // for the loop of a dialog that the handler may open
        greeting = false;
        port.Arrived(*event);
        if (!listening || clock.hasExpired(LongestTurn)) return;
    }
    turn.stop();
    if (const auto then = std::exchange(atEnd, nullptr)) return then();
    if (greeting && cutter.Holding()) quiet.start(port.Framing.greetingMs);
}

} // namespace halvern
