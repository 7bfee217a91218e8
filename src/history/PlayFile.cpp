// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/PlayFile.h"

#include "engine/ProcessPacket.h"
#include "protocol/RecordedLine.h"

namespace halvern {
namespace {

constexpr std::uint64_t LinesATurn = 256; ///< between two looks at the operator

/// The engine may write into the line that it is given.
void Play(Halvern& halvern, std::string_view packet, std::string_view tag)
{
    halvern.All.Dispatch([&, line = std::string(packet)]() mutable { ProcessPacket(halvern, line, tag); });
}

} // namespace

Played PlayFile(Halvern& halvern, InputFile& file, const Playback& playback)
{
    const auto progress = playback.title.empty() ? nullptr : halvern.Outside.dialogs.ShowProgress(playback.title);
    Played played;
    std::string made;
    for (std::string_view line; !halvern.Engine.Ended && file.ReadLine(line);) {
        if (++played.lines % LinesATurn == 0 && progress) played.stopped = !progress->Show(file.SoFar());
        if (played.stopped) break;
        const auto packet = PacketIn(line, made);
        const int times = playback.times ? playback.times(packet) : 1;
        if (times < 0) break;
        for (int i = 0; i < times; ++i) Play(halvern, packet, playback.tag);
    }
    played.trouble = file.Trouble();
    return played;
}

} // namespace halvern
