// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "state/Halvern.h"

/// How the ports do, in a word each: what the status bar shows.
namespace halvern {

enum class PortCondition { Closed, Connecting, Open, Sending, Quiet, Unverified, Lost };

/// One port as the status bar shows it.
struct PortLamp {
    const char* name = ""; ///< short, for the bar
    MenuItem* item = nullptr;
    PortCondition condition = PortCondition::Closed;
    std::string words;  ///< "open", "quiet 4 min", "lost since 03:55", UTC
    std::string reason; ///< why it is lost, or what the server answered; or an empty text
};

/// Watches the six ports. It sees only what happened up to a look, so that it wants one about every second.
class PortLamps {
public:
    explicit PortLamps(Halvern& halvern) : halvern(halvern) {}
    static constexpr std::size_t Count = 6;
    /// TNC, TCP/IP, sound card, PSK63, GPS, weather.
    std::array<PortLamp, Count> Look();

private:
    struct Seen {
        std::uint64_t heard = 0, sent = 0;
        std::int64_t heardAt = 0, sentAt = 0, lostAt = 0; ///< UTC, seconds; 0: not since it opened
    };
    Halvern& halvern;
    std::array<Seen, Count> seen{};
};

} // namespace halvern
