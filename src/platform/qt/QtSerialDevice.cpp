// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/QtSerialDevice.h"

#include <utility>

#include <QFileInfo>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include "platform/Text.h"

namespace halvern {
namespace {

enum ErrorNumber { BadSettings = 380, NoSuchPort = 8002, PortInUse = 8005, NotAllowed = 8006, Unusable = 8018 };

template <class Value, std::size_t count>
std::optional<Value> Named(const std::pair<std::string_view, Value> (&table)[count], std::string_view name)
{
    for (const auto& [word, value] : table)
        if (word == name) return value;
    return {};
}

constexpr std::pair<std::string_view, QSerialPort::Parity> Parities[] = {{"N", QSerialPort::NoParity},
                                                                         {"E", QSerialPort::EvenParity},
                                                                         {"O", QSerialPort::OddParity},
                                                                         {"M", QSerialPort::MarkParity},
                                                                         {"S", QSerialPort::SpaceParity}};
constexpr std::pair<std::string_view, QSerialPort::DataBits> DataBits[] = {
    {"5", QSerialPort::Data5}, {"6", QSerialPort::Data6}, {"7", QSerialPort::Data7}, {"8", QSerialPort::Data8}};
constexpr std::pair<std::string_view, QSerialPort::StopBits> StopBits[] = {
    {"1", QSerialPort::OneStop}, {"1.5", QSerialPort::OneAndHalfStop}, {"2", QSerialPort::TwoStop}};

/// A line that a bridge feeds keeps what came while nobody listened, page by page as room is made: all of it is old.
/// What comes now comes a few bytes at a time.
void DropWaiting(int line)
{
    constexpr int mostPages = 64, pushMs = 2;
    char page[4096];
    ssize_t count = sizeof page;
    for (int i = 0; i < mostPages && count >= 256; ++i) {
        pollfd waiting{line, POLLIN, 0};
        count = ::poll(&waiting, 1, pushMs) > 0 ? ::read(line, page, sizeof page) : 0;
    }
}

} // namespace

QtSerialDevice::QtSerialDevice(SerialPort& port, PortMap devices)
    : port(port), devices(std::move(devices)), feed(port, line)
{
    port.device = this;
    line.setReadBufferSize(EventFeed::LineBuffer);
    QObject::connect(
        &line, &QSerialPort::errorOccurred, &line, [this](QSerialPort::SerialPortError error) { WentWrong(error); },
        Qt::QueuedConnection);
}

QtSerialDevice::~QtSerialDevice()
{
    Close();
    port.device = nullptr;
}

std::optional<PortError> QtSerialDevice::Open(int number, const std::string& settings)
{
    Close();
    const auto known = devices();
    const auto found = known.find(number);
    const auto path = found == known.end() ? std::string() : found->second;
    line.setPortName(QString::fromStdString(path));
    if (path.empty() || !line.open(QIODevice::ReadWrite)) return Refusal(number, path);
    if (Configure(settings)) {
        DropWaiting(line.handle());
        feed.Start();
        return {};
    }
    const auto reason = line.errorString().toStdString();
    Close();
    const auto source = port.Name().substr(port.Name().find('.') + 1);
    return PortError{BadSettings, source,
                     "The device " + path + " does not take the settings \"" + settings + "\" (" + reason +
                         "). Please choose another speed on the setup form."};
}

bool QtSerialDevice::Configure(const std::string& settings)
{
    const auto parts = SplitAt(UpperCase(settings));
    if (parts.size() != 4) return false;
    const auto speed = static_cast<qint32>(LeadingNumber(parts[0]));
    const auto parity = Named(Parities, Trimmed(parts[1]));
    const auto data = Named(DataBits, Trimmed(parts[2]));
    const auto stop = Named(StopBits, Trimmed(parts[3]));
    return speed > 0 && parity && data && stop && line.setBaudRate(speed) && line.setParity(*parity) &&
           line.setDataBits(*data) && line.setStopBits(*stop) && line.setFlowControl(QSerialPort::NoFlowControl);
}

/// Says why a device did not open, and what the operator can do about it.
PortError QtSerialDevice::Refusal(int number, const std::string& path) const
{
    PortError error{Unusable, port.Name().substr(port.Name().find('.') + 1), {}};
    const auto com = "Com" + std::to_string(number);
    const auto named = com + " (" + path + ")";
    const auto fix = " To pin " + com + " to a device, write a line such as \"" + com +
                     " /dev/ttyUSB0\" into the file comports.txt in the program's folder.";
    if (path.empty()) {
        error.number = NoSuchPort;
        error.description = "No serial device was found for " + com + ". Is it plugged in?" + fix;
    } else if (::access(path.c_str(), F_OK) != 0) {
        error.number = NoSuchPort;
        error.description = "The device of " + named + " is not there. Is it plugged in?" + fix;
    } else if (::faccessat(AT_FDCWD, path.c_str(), R_OK | W_OK, AT_EACCESS) != 0) {
        const auto group = QFileInfo(QString::fromStdString(path)).group().toStdString();
        error.number = NotAllowed;
        error.description = "You have no permission to use " + named + ". It belongs to the group \"" + group +
                            "\": run \"sudo adduser $USER " + group + "\" in a terminal, then log out and in again.";
    } else if (line.error() == QSerialPort::PermissionError || line.error() == QSerialPort::OpenError) {
        error.number = PortInUse;
        error.description = "Another program, or another port of this one, uses " + named +
                            ". Close it there, or choose another port on the setup form.";
    } else {
        error.description = named + " did not open: " + line.errorString().toStdString() +
                            ". Is it a serial device? Please check the port on the setup form." + fix;
    }
    return error;
}

void QtSerialDevice::Close()
{
    feed.Drop();
    if (!line.isOpen()) return;
    line.flush();
    line.close();
}

void QtSerialDevice::Write(std::string_view bytes)
{
    line.write(bytes.data(), static_cast<qint64>(bytes.size()));
    line.flush();
}

void QtSerialDevice::WentWrong(QSerialPort::SerialPortError error)
{
    if (error != QSerialPort::ResourceError && error != QSerialPort::ReadError) return;
    if (!line.isOpen() || line.error() != error) return; // an older connection's
    const auto why = line.errorString().toStdString();
    feed.TakeRest();
    line.close();
    feed.Finish([this, why] { port.Lost(why); });
}

} // namespace halvern
