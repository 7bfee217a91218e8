// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Ports.h"

#include <utility>

namespace halvern {

std::string Port::ReadAll()
{
    return std::exchange(waiting, {});
}

std::optional<PortError> SerialPort::Open()
{
    if (device == nullptr) return PortError{8002, Name(), "Invalid port number"};
    auto error = device->Open(PortNumber, Settings);
    Tell({});
    return error;
}

void SerialPort::Close()
{
    if (device != nullptr) device->Close();
    Tell({});
}

void SerialPort::Write(std::string_view bytes)
{
    if (IsOpen()) device->Write(bytes);
}

void SerialPort::DiscardOutput()
{
    if (IsOpen()) device->DiscardOutput();
}

void SerialPort::Arrived(std::string_view bytes)
{
    waiting += bytes;
    if (ReceiveThreshold == 0 || waiting.size() < ReceiveThreshold || !OnReceive) return;
    Directory().Dispatch([this] { OnReceive(ReceivedBytes); });
}

PropertyTexts SerialPort::Describe() const
{
    return {{"open", IsOpen() ? "yes" : "no", false}};
}

int Socket::Connect()
{
    const int result = device == nullptr ? -1 : device->Connect(HostName, RemotePort, TimeoutMs);
    Tell({});
    return result;
}

void Socket::Disconnect()
{
    if (device != nullptr) device->Disconnect();
    waiting.clear();
    Tell({});
}

void Socket::Write(std::string_view bytes)
{
    if (Connected()) device->Write(bytes);
}

void Socket::Arrived(std::string_view bytes)
{
    waiting += bytes;
    if (OnReceive) Directory().Dispatch(OnReceive);
}

void Socket::HungUp()
{
    Tell({});
    if (OnDisconnect) Directory().Dispatch(OnDisconnect);
}

PropertyTexts Socket::Describe() const
{
    return {{"open", Connected() ? "yes" : "no", false}};
}

} // namespace halvern
