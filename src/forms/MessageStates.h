// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>
#include <cstdint>
#include <map>

#include "state/Halvern.h"

namespace halvern {

/// What became of the messages in `MsgToYouLst`, and when each came or went. The rows tell neither: the queue, its
/// timer and the ports do, as they are watched from the start of the run on.
class MessageStates final : public QObject {
    Q_OBJECT
public:
    MessageStates(Halvern& halvern, QObject* parent);
    /// Of a row that this station sent: "received", "sent 3x, next 14 s", "no port open", "waits its turn",
    /// "sent", "given up"; nothing for what it heard.
    QString StateOf(std::string_view row) const;
    /// "hh:mm", UTC; nothing for a row that was brought back from a file.
    QString TimeOf(std::string_view row) const;

private:
    void NoteQueue(const Change& change);
    void NoteRow(const Change& change);
    void NoteTimer();
    QString Waiting(int queued, const std::string& line) const;
    std::int64_t Now() const;
    std::int64_t UntilNext() const;

    Halvern& halvern;
    std::map<std::string, int, std::less<>> sent; ///< how often what was queued went out, by its row in the list
    std::map<std::string, std::int64_t, std::less<>> times;
    std::int64_t started = 0; ///< when the timer's wait began
    bool wasRunning = false;
};

} // namespace halvern
