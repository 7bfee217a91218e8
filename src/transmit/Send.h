// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "state/Halvern.h"

/// The one road out: whatever the station sends, be it its own or somebody else's, leaves it here.
namespace halvern {

/// The ways out of the station; "|" combines them. A port that is not open loses what it is given without a word.
enum class Road : unsigned { None = 0, Tnc = 1, Sound = 2, Radio = Tnc | Sound, Internet = 4, Psk63 = 8 };

constexpr Road operator|(Road one, Road other)
{
    return static_cast<Road>(static_cast<unsigned>(one) | static_cast<unsigned>(other));
}

/// Whether a road is among some.
constexpr bool Includes(Road roads, Road road)
{
    return (static_cast<unsigned>(roads) & static_cast<unsigned>(road)) != 0;
}

/// The road by which a line with this source tag came, to answer on; None for a line that was not heard on a port.
Road RoadOf(std::string_view tag);

/// A packet on its way out.
struct Packet {
    std::string information; ///< the information field
    std::string path = {};   ///< by radio: at most 8 entries with commas between, "*" behind a used one; empty for none
    std::string source = {}; ///< empty: the own call
    std::string dest = {};   ///< empty: the destination of own packets
    /// By PSK63 in whole lines: what is sent where that is not "SOURCE>DEST:INFO". Beacons show their path there.
    std::string psk63Line = {};
};

/// Sends packets: each by radio, then each to the Internet, then all by PSK63 in one go.
///
/// The radio ports need bytes 192 and 219 escaped, and the escaped text is what goes on to the Internet and between the
/// marks of PSK63 in the same call: servers have been given these packets so ever since, and they tell doubles by the
/// bytes. Where no radio port is open nothing is escaped. A packet that does not fit an AX.25 frame is told to the
/// operator; it is not sent by radio, and unchanged by the other roads.
void Send(Halvern& halvern, std::vector<Packet> packets, Road roads);
void Send(Halvern& halvern, Packet packet, Road roads);

/// Hands another station's line to the Internet as it stands, without its line end: no byte is changed, none is added
/// but the line end.
void PassToInternet(Halvern& halvern, std::string_view line);

/// Is there a port open by which `Road::Radio` leads out?
bool RadioOpen(const Halvern& halvern);

} // namespace halvern
