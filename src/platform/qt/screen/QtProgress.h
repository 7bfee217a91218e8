// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QProgressDialog>

#include "platform/Dialogs.h"

namespace halvern {

/// Long work in a window of its own: lines done, of about how many, how fast, how much longer. It appears where the
/// work takes longer than a moment. While it is up the operator can move windows and stop the work, but start nothing
/// else; ports and timers go on.
class QtProgress final : public Progress {
public:
    QtProgress(QWidget* above, const QString& title);
    bool Show(const ReadSoFar& soFar) override;

private:
    QProgressDialog dialog;
    QElapsedTimer sinceStart, sinceShown;
};

/// What the window says. @param seconds  since the work began
QString ProgressWords(const ReadSoFar& soFar, double seconds);

} // namespace halvern
