// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/EventFeed.h"

#include <utility>

#include <QElapsedTimer>

namespace halvern {
namespace {

/// How long events are delivered before the windows get their turn, in ms: a burst does not cost a repaint an event.
constexpr int LongestTurn = 20;

} // namespace

EventFeed::EventFeed(Port& port)
    : port(port), cutter(port.EndMark, [this](std::string_view piece) { events.emplace_back(piece); })
{
    quiet.setSingleShot(true);
    quiet.setInterval(EndMarkCutter::QuietMs);
    quiet.setTimerType(Qt::PreciseTimer);
    turn.setSingleShot(true);
    turn.setInterval(0);
    QObject::connect(&quiet, &QTimer::timeout, [this] {
        cutter.Flush();
        Pump();
    });
    QObject::connect(&turn, &QTimer::timeout, [this] { Pump(); });
}

void EventFeed::Take(std::string_view bytes)
{
    if (bytes.empty()) return;
    cutter.Take(bytes);
    if (cutter.Holding())
        quiet.start();
    else
        quiet.stop();
    Pump();
}

void EventFeed::Finish(std::function<void()> then)
{
    quiet.stop();
    cutter.Flush();
    atEnd = std::move(then);
    Pump();
}

void EventFeed::Drop()
{
    quiet.stop();
    turn.stop();
    cutter.Drop();
    events.clear();
    atEnd = nullptr;
}

void EventFeed::Pump()
{
    QElapsedTimer clock;
    clock.start();
    while (!events.empty()) {
        const std::string event = std::move(events.front());
        events.pop_front();
        if (!events.empty() || atEnd) turn.start(); // for the loop of a dialog that the handler may open
        port.Arrived(event);
        if (clock.hasExpired(LongestTurn)) return;
    }
    turn.stop();
    if (const auto then = std::exchange(atEnd, nullptr)) then();
}

} // namespace halvern
