// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/EndSignals.h"

#include <utility>

namespace halvern {

EndSignals::EndSignals(std::function<void()> onEnd)
{
    QObject::connect(&arrived, &QSocketNotifier::activated, [this, onEnd = std::move(onEnd)] {
        arrived.setEnabled(false); // an ending session sends several
        onEnd();
    });
}

} // namespace halvern
