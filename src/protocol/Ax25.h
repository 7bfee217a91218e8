// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// AX.25 UI frames as KISS carries them, from bytes to text and back; functions of their arguments alone.
/// Sources: AX.25 Link Access Protocol 2.2, section 3 (addresses, UI frames); "The KISS TNC" by Chepponis and Karn.
namespace halvern {

/// What a received UI frame says.
struct ReceivedFrame {
    std::string dest, source; ///< calls, "-SSID" behind them unless it is 0
    std::string path;         ///< entries with a comma in front of each, "*" behind each used one; empty for none
    std::string info;
    std::int16_t used = 0; ///< entries that have repeated the packet
};

/// Reads a frame, KISS framing removed, escapes still in it. @return nothing for what is no UI frame with at most
/// eight digipeaters.
std::optional<ReceivedFrame> ReadFrame(std::string frame);

/// "SRC>DEST,PATH:INFO". Of the used entries only the last one keeps its "*".
std::string TextOf(ReceivedFrame frame);

/// Undoes the KISS escapes in place: 219 220 is 192, 219 221 is 219; 219 swallows any other byte, and its own end.
void KissUnescape(std::string& frame);

/// Bytes 192 and 219 in the form in which they may stand inside a KISS frame.
std::string KissEscaped(std::string_view bytes);

/// A frame ready for the port, or why there is none.
struct BuiltFrame {
    std::string bytes;             ///< with both FENDs and the KISS command byte
    std::string payload;           ///< the escaped payload
    const char* refusal = nullptr; ///< what to tell the operator; `bytes` and `payload` are empty then
};

/// Builds a UI frame. Calls have an optional "-SSID" up to 15 and at most 6 characters; a digipeater's call is cut to
/// 6. A path has at most eight entries with commas between, "*" at the end of a used one; empty for none.
BuiltFrame BuildFrame(std::string_view dest, std::string_view src, std::string_view path, std::string_view payload);

} // namespace halvern
