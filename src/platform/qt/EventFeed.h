// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include <QIODevice>
#include <QTimer>

#include "platform/EndMark.h"
#include "platform/Ports.h"

namespace halvern {

/// The receiving half of a real port: turns the bytes of a line into events for its control.
///
/// It reads no more than the station keeps up with: what comes faster waits in the line's own buffer (the device limits
/// it to `LineBuffer`) and then at the sender. Events keep their order even when the handler of one opens a dialog:
/// what is left goes on from the dialog's own loop, so that a question on the screen does not stop the ports.
class EventFeed {
public:
    static constexpr qint64 LineBuffer = 65536;

    EventFeed(Port& port, QIODevice& line);

    /// The line is up: what it brings from now on is delivered.
    void Start();
    /// The line is about to close itself: keeps what its buffer holds.
    void TakeRest();
    /// No more bytes will come: delivers the whole events that are there, then calls `then` once.
    void Finish(std::function<void()> then);
    /// Forgets all that was not delivered, and delivers no more.
    void Drop();

private:
    void Pump();
    std::optional<std::string> Next();

    Port& port;
    QIODevice& line;
    EndMarkCutter cutter;
    bool listening = false, greeting = false;
    std::function<void()> atEnd;
    QTimer quiet, turn;
};

} // namespace halvern
