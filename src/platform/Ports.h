// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/EndMark.h"
#include "platform/Form.h"

/// Serial ports and TCP sockets as controls. The behaviour talks to these; what moves the bytes is a device that the
/// platform puts behind each of them: a real one, or a simulated one.
namespace halvern {

/// Why a port did not open.
struct PortError {
    int number = 0;
    std::string source;      ///< who says so: the program, or the port
    std::string description; ///< what to do about it, where that is known
    /// As the operator is told it.
    std::string Words() const;
};

/// The far side of a SerialPort.
class SerialDevice {
public:
    virtual ~SerialDevice() = default;
    /// @param number    1 to 16, as in "Com1"
    /// @param settings  "speed,n,8,1"
    virtual std::optional<PortError> Open(int number, const std::string& settings) = 0;
    virtual void Close() = 0;
    virtual bool IsOpen() const = 0;
    virtual void Write(std::string_view bytes) = 0;
    virtual void DiscardOutput() = 0;
};

/// The far side of a Socket.
class SocketDevice {
public:
    virtual ~SocketDevice() = default;
    /// Waits until connected, refused, timed out or disconnected; other events go on meanwhile.
    virtual std::optional<PortError> Connect(const std::string& host, int port, int timeoutMs) = 0;
    /// Closes the connection, or gives up the one that is being tried.
    virtual void Disconnect() = 0;
    virtual bool Connected() const = 0;
    virtual void Write(std::string_view bytes) = 0;
};

/// Events and bytes of a port, in both kinds.
class Port : public Control {
public:
    Port(Form& form, std::string_view name, const halvern::Framing& framing) : Control(form, name), Framing(framing) {}

    /// What belongs together on this port. A real device delivers its bytes in such events; a simulated one delivers
    /// events as they are given.
    halvern::Framing Framing;

    bool ActsByItself() const override { return true; }

    /// Takes all that is waiting. What nobody takes is kept up to `MostWaiting` bytes; from then on events are lost.
    std::string ReadAll();
    std::size_t Waiting() const { return waiting.size(); }
    void DiscardInput() { waiting.clear(); }

    /// How often something came in and went out in this run, for whoever shows how a port does.
    std::uint64_t Heard() const { return heard; }
    std::uint64_t Sent() const { return sent; }
    /// Why it is gone although nobody closed it, or an empty text.
    const std::string& Gone() const { return gone; }
    /// For devices: the other end is not there any more.
    virtual void Lost(const std::string& why);

    /// For devices: bytes have come in, as one event.
    virtual void Arrived(std::string_view bytes) = 0;

protected:
    static constexpr std::size_t MostWaiting = 65536;
    void Keep(std::string_view bytes);
    /// Somebody opens or closes it.
    void Touched();

    std::string waiting, gone;
    std::uint64_t heard = 0, sent = 0;
};

/// Event codes of a serial port; only received bytes matter here.
inline constexpr int ReceivedBytes = 2;

/// A serial line: a port whose device is opened by its name and speed.
class SerialPort final : public Port {
public:
    SerialPort(Form& form, std::string_view name, const halvern::Framing& framing = {}) : Port(form, name, framing) {}

    int PortNumber = 0;
    std::string Settings;
    /// Bytes that must wait before `OnReceive` runs; 0: it never does.
    std::size_t ReceiveThreshold = 0;

    /// Opens the line by `PortNumber` and `Settings`. @return why it could not be opened, nothing where it is
    std::optional<PortError> Open();
    void Close();
    bool IsOpen() const { return device != nullptr && device->IsOpen(); }
    /// Writes to a closed port are lost without a word.
    void Write(std::string_view bytes);
    /// Forgets what waits to be sent.
    void DiscardOutput();
    void Arrived(std::string_view bytes) override;
    PropertyTexts Describe() const override;

    SerialDevice* device = nullptr;
    std::function<void(int eventCode)> OnReceive;
};

/// A TCP connection to one server: a port whose device connects by host and number.
class Socket final : public Port {
public:
    Socket(Form& form, std::string_view name, std::string host, int port, int timeoutMs,
           const halvern::Framing& framing = {})
        : Port(form, name, framing), HostName(std::move(host)), RemotePort(port), TimeoutMs(timeoutMs)
    {
    }

    std::string HostName;
    int RemotePort;
    int TimeoutMs;

    /// Other events go on until it returns; the socket counts as connected only then.
    /// @return 0 on success, `Stopped` where Disconnect has given it up, otherwise another number.
    int Connect();
    static constexpr int Stopped = 10004;
    bool Connecting() const { return connecting; }
    /// Why the last Connect failed, in a few words.
    const std::string& WhyNot() const { return whyNot; }
    /// Closes the connection, or gives up the one that is being tried.
    void Disconnect();
    bool Connected() const { return device != nullptr && device->Connected(); }
    /// Bytes as they are. Without a connection they are lost without a word.
    void Write(std::string_view bytes);
    void Arrived(std::string_view bytes) override;
    void Lost(const std::string& why) override;
    PropertyTexts Describe() const override;

    SocketDevice* device = nullptr;
    Event OnReceive, OnDisconnect;

private:
    bool connecting = false;
    std::string whyNot;
};

} // namespace halvern
