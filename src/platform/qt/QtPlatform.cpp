// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/QtPlatform.h"

#include "platform/qt/ComPorts.h"

namespace halvern {

QtPlatform::QtPlatform(Controls& controls, const std::string& applicationFolder) : timers(controls)
{
    const auto devices = [applicationFolder] { return ComPortsOf(applicationFolder); };
    for (auto* control : controls.All()) {
        if (auto* serial = dynamic_cast<SerialPort*>(control))
            serials.push_back(std::make_unique<QtSerialDevice>(*serial, devices));
        if (auto* socket = dynamic_cast<Socket*>(control)) sockets.push_back(std::make_unique<QtSocketDevice>(*socket));
    }
}

} // namespace halvern
