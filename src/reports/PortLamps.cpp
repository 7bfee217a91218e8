// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/PortLamps.h"

#include "platform/Text.h"
#include "protocol/UtcTime.h"

namespace halvern {
namespace {

struct PortRow {
    const char* name;
    MenuItem MainForm::*item;
    SerialPort MainForm::*serial;
    Socket MainForm::*socket;
    int quietMinutes; ///< of silence that is worth a word: a server speaks every 20 seconds, a channel may rest
};

constexpr PortRow PortRows[PortLamps::Count] = {
    {"TNC", &MainForm::PortTnc, &MainForm::MSComm1, nullptr, 5},
    {"IP", &MainForm::PortIp, nullptr, &MainForm::InternetSoc, 1},
    {"Sound", &MainForm::SoundCardMenu, nullptr, &MainForm::SoundSoc, 5},
    {"PSK63", &MainForm::Psk63Menu, nullptr, &MainForm::Psk63Soc, 30},
    {"GPS", &MainForm::GpsMenu, &MainForm::GpsCom, nullptr, 1},
    {"WX", &MainForm::WeatherMenu, &MainForm::WeatherCom, nullptr, 5},
};

constexpr int SendingSeconds = 2; ///< how long a lamp shows that something went out

const Port& PortOf(const MainForm& form, const PortRow& row)
{
    if (row.serial != nullptr) return form.*row.serial;
    return form.*row.socket;
}

bool IsUp(const MainForm& form, const PortRow& row)
{
    return row.serial != nullptr ? (form.*row.serial).IsOpen() : (form.*row.socket).Connected();
}

std::string LoginAnswer(const MainForm& form, const PortRow& row)
{
    return row.socket == &MainForm::InternetSoc ? form.ServerAnswer : std::string();
}

} // namespace

std::array<PortLamp, PortLamps::Count> PortLamps::Look()
{
    auto& form = halvern.ConMdiFrm;
    const auto utc = UtcNow(halvern.Outside.clock);
    const auto now = SecondsOf(utc);
    std::array<PortLamp, Count> lamps;
    for (std::size_t i = 0; i < Count; ++i) {
        const auto& row = PortRows[i];
        const auto& port = PortOf(form, row);
        auto& was = seen[i];
        auto& lamp = lamps[i];
        lamp = {row.name, &(form.*row.item)};
        const bool connecting = row.socket != nullptr && (form.*row.socket).Connecting();
        if (!lamp.item->Checked()) {
            was = {port.Heard(), port.Sent()};
            lamp.condition = connecting ? PortCondition::Connecting : PortCondition::Closed;
            lamp.words = connecting ? "connecting" : "closed";
            continue;
        }
        if (was.heardAt == 0 || std::exchange(was.heard, port.Heard()) != port.Heard()) was.heardAt = now;
        if (std::exchange(was.sent, port.Sent()) != port.Sent()) was.sentAt = now;
        const auto quiet = (now - was.heardAt) / 60;
        lamp.reason = LoginAnswer(form, row);
        if (!port.Gone().empty()) {
            if (was.lostAt == 0) was.lostAt = now;
            lamp.condition = PortCondition::Lost;
            const auto since = MomentOf(was.lostAt);
            lamp.words = "lost since " + ZeroFilled(since.hour, 2) + ":" + ZeroFilled(since.minute, 2);
            lamp.reason = port.Gone();
        } else if (was.sentAt != 0 && now - was.sentAt < SendingSeconds) {
            lamp.condition = PortCondition::Sending;
            lamp.words = "sending";
        } else if (IsUp(form, row) && quiet >= row.quietMinutes) {
            lamp.condition = PortCondition::Quiet;
            lamp.words = "quiet " + std::to_string(quiet) + " min";
        } else if (Holds(lamp.reason, " unverified")) {
            lamp.condition = PortCondition::Unverified;
            lamp.words = "unverified";
        } else {
            lamp.condition = PortCondition::Open;
            lamp.words = "open";
        }
    }
    return lamps;
}

} // namespace halvern
