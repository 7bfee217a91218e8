// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Packets among the single characters of a PSK63 engine. The mode has no frames of its own, so a packet stands between
/// two words on the air, with noise around it:
///
///     k;eiSSSSSQ1ABC>APHV01:>on HFEEEEE t~u
namespace halvern {

/// A text as it goes on the air: between the marker words.
std::string BetweenMarkers(std::string_view text);

/// Characters for the engine's transmit buffer: byte 25 in front of each.
std::string ForTransmitBuffer(std::string_view text);
/// What makes the engine send its buffer.
inline constexpr std::string_view TransmitCommand = "\x1ATX\x1B";
/// The byte by which the engine says that it has sent its buffer.
inline constexpr char TransmissionFinished = '\x1C';

/// Looks for packets among the characters that an engine hears. What it keeps from one to the next is its owner's.
class Psk63MarkerHunt {
public:
    static constexpr std::size_t LongestHunt = 1023; ///< characters outside a packet; one more empties the hunt
    static constexpr std::size_t LongestFrame = 255; ///< one more without an end marker is no packet any longer

    /// @param hunt     characters outside a packet: the start marker may have begun among them
    /// @param frame    characters of the packet that comes in
    /// @param inFrame  there is one coming in
    Psk63MarkerHunt(std::string& hunt, std::string& frame, bool& inFrame) : hunt(hunt), frame(frame), inFrame(inFrame)
    {
    }

    /// Takes the next character. Noise before a start marker is lost, and so is a packet whose end does not come: its
    /// rest takes whatever begins within it along.
    /// @return the text of the packet that it ended
    std::optional<std::string> Take(char character);

private:
    bool Begins(char character);

    std::string &hunt, &frame;
    bool& inFrame;
};

} // namespace halvern
