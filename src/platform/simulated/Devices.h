// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Ports.h"

namespace halvern {

/// What a simulated port notes: every write since last asked. An open or a connect succeeds unless a refusal waits.
class SimulatedLine {
public:
    /// What was written since it was last asked for, a write each.
    std::vector<std::string> TakeSent();
    /// Whether the line is open.
    bool UpNow() const { return open; }
    /// The next open fails with this number and text.
    void Refuse(int number, std::string text) { refusal = PortError{number, "", std::move(text)}; }

protected:
    std::optional<PortError> TakeRefusal();
    bool open = false;
    std::vector<std::string> sent;

private:
    std::optional<PortError> refusal;
};

/// A serial line whose far end is a test or the console.
class SimulatedSerial final : public SerialDevice, public SimulatedLine {
public:
    explicit SimulatedSerial(SerialPort& port) : port(port) { port.device = this; }
    std::optional<PortError> Open(int number, const std::string& settings) override;
    void Close() override { open = false; }
    bool IsOpen() const override { return open; }
    void Write(std::string_view bytes) override { sent.emplace_back(bytes); }
    void DiscardOutput() override { ++discards; }
    int number = 0, discards = 0;
    std::string settings;

private:
    SerialPort& port;
};

/// A connection whose far end is a test or the console.
class SimulatedSocket final : public SocketDevice, public SimulatedLine {
public:
    explicit SimulatedSocket(Socket& socket) : socket(socket) { socket.device = this; }
    std::optional<PortError> Connect(const std::string& host, int port, int timeoutMs) override;
    void Disconnect() override { open = false; }
    bool Connected() const override { return open; }
    void Write(std::string_view bytes) override { sent.emplace_back(bytes); }
    /// The other end closes.
    void HangUp();
    std::string host;
    int port = 0;

private:
    Socket& socket;
};

/// A simulated device behind every port among these controls.
class SimulatedPorts {
public:
    /// Gives each port of the station a simulated device.
    explicit SimulatedPorts(Controls& controls);
    /// @return nullptr for what is no port.
    SimulatedLine* Line(const Control& port) const;
    SimulatedSocket* SocketOf(const Control& socket) const;

private:
    std::map<const Control*, std::unique_ptr<SimulatedSerial>> serials;
    std::map<const Control*, std::unique_ptr<SimulatedSocket>> sockets;
};

} // namespace halvern
