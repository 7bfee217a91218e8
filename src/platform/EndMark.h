// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace halvern {

inline constexpr char FrameEnd = '\xC0';       ///< the end mark of KISS ports: FEND, byte 192
inline constexpr char CharacterHeard = '\x1D'; ///< byte 29 leads each character that a PSK63 engine hears

/// How the bytes of a port fall into events; declared where the port is.
struct Framing {
    std::optional<char> mark{}; ///< ends an event; none: each arrival is an event
    std::size_t longest = 0;    ///< bytes of an event, its end mark included; a longer one is dropped up to its mark
    bool opens = false;         ///< the mark stands in front as well, where one may close an event and open the next
    int greetingMs = 0;         ///< so long a quiet ends the first event of a connection too; 0: no quiet does
    std::optional<char> lead{}; ///< in the place of a mark: makes an event with the byte behind it, as others do alone
};

inline constexpr Framing TextLines{.mark = '\n', .longest = 2000};
/// Of a server that greets whoever connects, at times without a line end.
inline constexpr Framing ServerLines{.mark = '\n', .longest = TextLines.longest, .greetingMs = 5000};
inline constexpr Framing LedCharacters{.lead = CharacterHeard};
inline constexpr Framing KissFrames{.mark = FrameEnd, .longest = 4096, .opens = true};

/// Cuts a byte stream into events that never reach past an end mark, however the stream arrives.
///
/// An event is everything up to and with the next end mark. An end mark with nothing before it is no event. What has no
/// end mark yet waits here, and never takes more room than the longest event.
class EndMarkCutter {
public:
    /// @param framing what ends a piece, and how long one may be.
    explicit EndMarkCutter(const Framing& framing) : framing(framing) {}

    /// Takes what has arrived; Next cuts it.
    void Take(std::string_view bytes);
    /// The next whole event; nothing until more arrives.
    std::optional<std::string> Next();
    /// Takes the unfinished event as it stands, once Next has cut all before it.
    std::string Rest() { return std::exchange(piece, {}); }
    bool Holding() const { return !piece.empty(); }

private:
    std::optional<std::string> NextLed();

    Framing framing;
    std::string arrived;
    std::size_t at = 0; ///< where the rest of `arrived` begins
    std::string piece;  ///< the unfinished event
    bool tooLong = false;
};

} // namespace halvern
