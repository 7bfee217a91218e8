// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <functional>
#include <string>

#include <QTimer>

#include "platform/EndMark.h"
#include "platform/Ports.h"

namespace halvern {

/// The receiving half of a real port: turns the bytes of a line into events for its control.
///
/// Events keep their order even when the handler of one opens a dialog: what is left goes on from the dialog's own
/// loop, so that a question on the screen does not stop the ports.
class EventFeed {
public:
    explicit EventFeed(Port& port);

    /// Bytes have come in.
    void Take(std::string_view bytes);
    /// No more bytes will come: delivers what is there, whole or not, then calls `then` once.
    void Finish(std::function<void()> then);
    /// Forgets all that was not delivered.
    void Drop();

private:
    void Pump();

    Port& port;
    EndMarkCutter cutter;
    std::deque<std::string> events;
    std::function<void()> atEnd;
    QTimer quiet, turn;
};

} // namespace halvern
