// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

/// Third-party packets (APRS protocol reference 1.0, chapter 17): a gate's information field that begins with "}" and
/// holds another station's whole packet.
namespace halvern {

/// The information field in which a gate puts a packet of the Internet on radio:
/// "}SOURCE>DEST,TCPIP,GATE*:INFO".
std::string ThirdPartyField(std::string_view source, std::string_view dest, std::string_view gate,
                            std::string_view info);

/// The packet that a line carries inside: all behind its first ":}". Empty where there is none.
std::string_view CarriedPacket(std::string_view line);

/// What tells one message from another, whoever passed it on: the information field without its type, which is
/// addressee, ":" and text. Empty where a line has no information field.
std::string_view MessageOf(std::string_view line);

} // namespace halvern
