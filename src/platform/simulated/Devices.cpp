// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/simulated/Devices.h"

#include <utility>

namespace halvern {

std::vector<std::string> SimulatedLine::TakeSent()
{
    return std::exchange(sent, {});
}

std::optional<PortError> SimulatedLine::TakeRefusal()
{
    return std::exchange(refusal, std::nullopt);
}

std::optional<PortError> SimulatedSerial::Open(int comNumber, const std::string& comSettings)
{
    number = comNumber;
    settings = comSettings;
    if (auto error = TakeRefusal()) {
        error->source = port.Name().substr(port.Name().find('.') + 1);
        return error;
    }
    open = true;
    return {};
}

std::optional<PortError> SimulatedSocket::Connect(const std::string& toHost, int toPort, int)
{
    host = toHost;
    port = toPort;
    if (auto error = TakeRefusal()) return error;
    open = true;
    return {};
}

void SimulatedSocket::HangUp()
{
    if (!open) return;
    open = false;
    socket.Lost("the other end has closed");
}

SimulatedPorts::SimulatedPorts(Controls& controls)
{
    for (auto* control : controls.All()) {
        if (auto* serial = dynamic_cast<SerialPort*>(control))
            serials[control] = std::make_unique<SimulatedSerial>(*serial);
        if (auto* socket = dynamic_cast<Socket*>(control))
            sockets[control] = std::make_unique<SimulatedSocket>(*socket);
    }
}

SimulatedLine* SimulatedPorts::Line(const Control& port) const
{
    if (const auto serial = serials.find(&port); serial != serials.end()) return serial->second.get();
    return SocketOf(port);
}

SimulatedSocket* SimulatedPorts::SocketOf(const Control& socket) const
{
    const auto found = sockets.find(&socket);
    return found == sockets.end() ? nullptr : found->second.get();
}

} // namespace halvern
