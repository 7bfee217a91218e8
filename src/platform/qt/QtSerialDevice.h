// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <map>
#include <string>

#include <QSerialPort>

#include "platform/Ports.h"
#include "platform/qt/EventFeed.h"

namespace halvern {

/// A real serial line behind a SerialPort.
///
/// A device that vanishes closes itself in silence: what is written from then on is lost, and the operator closes and
/// opens the port when it is back.
class QtSerialDevice final : public SerialDevice {
public:
    using PortMap = std::function<std::map<int, std::string>()>;

    /// @param devices  asked at each open, so that a device plugged in later is found
    QtSerialDevice(SerialPort& port, PortMap devices);
    ~QtSerialDevice() override;
    QtSerialDevice(const QtSerialDevice&) = delete;
    QtSerialDevice& operator=(const QtSerialDevice&) = delete;

    std::optional<PortError> Open(int number, const std::string& settings) override;
    void Close() override;
    bool IsOpen() const override { return line.isOpen(); }
    void Write(std::string_view bytes) override;
    void DiscardOutput() override { line.clear(QSerialPort::Output); }

private:
    bool Configure(const std::string& settings);
    void WentWrong(QSerialPort::SerialPortError error);
    PortError Refusal(int number, const std::string& path) const;

    SerialPort& port;
    PortMap devices;
    QSerialPort line;
    EventFeed feed;
};

} // namespace halvern
