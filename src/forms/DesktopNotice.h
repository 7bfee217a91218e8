// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace halvern {

/// Has the desktop show a line for a while, whatever window is in front: the notification service of freedesktop.org.
/// Where there is none, nothing happens; nobody waits for it.
void NotifyDesktop(const QString& title, const QString& text);

} // namespace halvern
