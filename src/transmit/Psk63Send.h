// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "state/Halvern.h"

/// Sending by PSK63, in the two dialects of modem programs. The port number is the dialect: 3122 takes single
/// characters and needs the packets marked on the air, any other port takes whole text lines.
namespace halvern {

/// One packet in both dialects.
struct Psk63Packet {
    std::string text; ///< "SOURCE>DEST:INFO", put between the markers on the air; it carries no path
    std::string line; ///< the packet as a text line, without its end
};

/// True for the dialect of single characters.
bool Psk63SpeaksInMarks(const Halvern& halvern);

/// Sends packets one behind the other. In the dialect of marks a carriage return parts them, the transmit command
/// follows the last one, and nothing is sent while a packet is coming in; otherwise each goes out as a line. A closed
/// port loses them without a word.
void SendByPsk63(Halvern& halvern, const std::vector<Psk63Packet>& packets);

} // namespace halvern
