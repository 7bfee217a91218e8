// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/qt/QtSerialDevice.h"
#include "platform/qt/QtSocketDevice.h"
#include "platform/qt/QtTimers.h"

namespace halvern {

/// The real outside world of some controls: their timers tick, their ports reach real devices, for as long as this
/// lives. Needs a QCoreApplication whose event loop runs.
class QtPlatform {
public:
    /// @param applicationFolder  where comports.txt may lie
    QtPlatform(Controls& controls, const std::string& applicationFolder);

private:
    QtTimers timers;
    std::vector<std::unique_ptr<QtSerialDevice>> serials;
    std::vector<std::unique_ptr<QtSocketDevice>> sockets;
};

} // namespace halvern
