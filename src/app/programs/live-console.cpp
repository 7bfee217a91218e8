// SPDX-License-Identifier: GPL-3.0-or-later
#include <QCoreApplication>

#include "app/programs/LiveConsole.h"
#include "app/programs/QtConsole.h"

namespace halvern {

int RunLive(int count, char** arguments, const ConsoleOptions& options)
{
    const QCoreApplication application(count, arguments);
    return RunInEventLoop(options, WholePictureSize, [](ConsoleStation& station) {
        station.KeepPictures();
        return nullptr;
    });
}

} // namespace halvern
