// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace halvern {

inline constexpr char FrameEnd = '\xC0'; ///< the end mark of KISS ports: FEND, byte 192

/// Cuts a byte stream into events that never reach past an end mark, however the stream arrives.
///
/// An event is everything up to and with the next end mark. What has no end mark yet waits here; the owner of the
/// clock calls Flush after `QuietMs` without a byte, and a piece that grows to `LongestPiece` goes out as it is, so
/// that a stream without marks can't grow without bound.
class EndMarkCutter {
public:
    static constexpr int QuietMs = 5000;
    static constexpr std::size_t LongestPiece = 65536;

    using Deliver = std::function<void(std::string_view)>;

    explicit EndMarkCutter(std::optional<char> mark, Deliver deliver) : mark(mark), deliver(std::move(deliver)) {}

    /// Takes what has arrived and delivers each piece that it ends. Without a mark each arrival is an event.
    void Take(std::string_view bytes);
    /// Delivers the unfinished piece, if there is one.
    void Flush();
    /// Forgets the unfinished piece.
    void Drop() { piece.clear(); }
    bool Holding() const { return !piece.empty(); }

private:
    std::optional<char> mark;
    Deliver deliver;
    std::string piece;
};

} // namespace halvern
