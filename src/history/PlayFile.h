// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "state/Halvern.h"

namespace halvern {

/// How a file is played.
struct Playback {
    std::string_view tag; ///< source tag of its packets
    /// How often a packet is played; every packet once where this is empty. A negative answer ends the playing.
    std::function<int(std::string_view packet)> times = {};
    std::string title = {}; ///< of the window that shows how far it is; empty for none
};

/// How far a file was played.
struct Played {
    std::uint64_t lines = 0; ///< that were read
    bool stopped = false;    ///< by the operator
    std::string trouble;     ///< why the file could not be read to its end, or an empty text
};

/// Plays a recorded file through the engine: the one function for the log's import, the history and the console's
/// replay.
Played PlayFile(Halvern& halvern, InputFile& file, const Playback& playback);

} // namespace halvern
