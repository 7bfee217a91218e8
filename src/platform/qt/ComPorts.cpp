// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/ComPorts.h"

#include <algorithm>
#include <set>
#include <utility>

#include <QFileInfo>
#include <QSerialPortInfo>

#include "platform/Files.h"
#include "platform/Text.h"

namespace halvern {
namespace {

constexpr int MostPorts = 16;

/// The device itself, where a path is a link to one.
std::string DeviceOf(const std::string& path)
{
    const auto real = QFileInfo(QString::fromStdString(path)).canonicalFilePath();
    return real.isEmpty() ? path : real.toStdString();
}

/// "/dev/ttyUSB10" as its stem and its number, so that it stands behind "/dev/ttyUSB2".
std::pair<std::string, double> ByNumber(const std::string& path)
{
    const auto stem = path.find_last_not_of("0123456789") + 1;
    return {path.substr(0, stem), LeadingNumber(path.substr(stem))};
}

std::map<int, std::string> PinsOf(std::string_view text)
{
    std::map<int, std::string> pins;
    for (const auto line : LinesOf(text)) {
        const auto entry = Trimmed(line);
        const auto blank = entry.find_first_of(" \t");
        if (blank == std::string_view::npos || UpperCase(entry.substr(0, 3)) != "COM") continue;
        const auto number = static_cast<int>(LeadingNumber(entry.substr(3, blank - 3)));
        const auto path = Trimmed(entry.substr(blank + 1));
        if (number >= 1 && number <= MostPorts && !path.empty()) pins[number] = path;
    }
    return pins;
}

} // namespace

std::map<int, std::string> AssignComPorts(std::string_view pins, std::vector<std::string> found)
{
    std::sort(found.begin(), found.end(),
              [](const std::string& a, const std::string& b) { return ByNumber(a) < ByNumber(b); });
    auto ports = PinsOf(pins);
    std::set<std::string> pinned;
    for (const auto& [number, path] : ports) pinned.insert(DeviceOf(path));
    int number = 1;
    for (const auto& path : found) {
        if (pinned.count(DeviceOf(path)) != 0) continue;
        while (ports.count(number) != 0) ++number;
        if (number > MostPorts) break;
        ports[number] = path;
    }
    return ports;
}

std::map<int, std::string> ComPortsOf(const std::string& applicationFolder)
{
    std::vector<std::string> found;
    for (const auto& info : QSerialPortInfo::availablePorts()) found.push_back(info.systemLocation().toStdString());
    const auto pins = DiskFiles().Read(applicationFolder + "/comports.txt");
    return AssignComPorts(pins.value_or(""), std::move(found));
}

} // namespace halvern
