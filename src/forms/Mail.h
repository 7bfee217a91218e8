// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <array>

#include "state/Halvern.h"

namespace halvern {

/// The tabs of the Messages window, as the form counts them.
enum MailTab { TrafficTab, SendTab, BulletinsTab, MailTabs };

/// Counts what came in since the operator last saw the tab that it stands on. A tab is seen while it is the one shown,
/// its window is up and not minimised, and the program has the operator's keys. What is brought back from a file,
/// played back from a log or sent by this station is no news. It follows the state alone: any number of them say the
/// same.
class Mail final : public QObject {
    Q_OBJECT
public:
    Mail(Halvern& halvern, QObject* parent);
    /// Messages to this station or to one of its groups.
    int Unread() const { return News(SendTab); }
    /// Rows that came to a tab and were not seen.
    int News(int tab) const { return news[static_cast<std::size_t>(tab)]; }

signals:
    void UnreadChanged(int messages);
    void NewsChanged(int tab, int rows);

private:
    void Note(int tab, const Change& change);
    void Look();
    bool Seen(int tab) const;
    void Count(int tab, int rows);

    Halvern& halvern;
    std::array<int, MailTabs> news{};
};

} // namespace halvern
