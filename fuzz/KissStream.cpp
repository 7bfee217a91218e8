// SPDX-License-Identifier: GPL-3.0-or-later
// A KISS byte stream through both port handlers: cut at its frame ends, as a real device delivers it, and in pieces of
// any length. The first byte says how long the pieces are. The digipeater is on, so what comes in may go out again.
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "engine/ResetStores.h"
#include "platform/EndMark.h"
#include "support/Station.h"

using namespace halvern;

namespace {

void Require(bool holds, const char* what)
{
    if (holds) return;
    std::fprintf(stderr, "broken: %s\n", what);
    std::abort();
}

/// Whatever was heard, what is sent can be taken apart again by any KISS reader.
void CheckSent(test::Station& station, const Port& port)
{
    for (const auto& bytes : station.SentBy(port)) {
        Require(bytes.size() >= 19 && bytes[0] == FrameEnd && bytes[1] == 0, "a sent frame has its head");
        Require(bytes.find(FrameEnd, 1) == bytes.size() - 1, "a sent frame ends once");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static test::Station* const station = [] {
        auto* made = new test::Station;
        made->SetUp();
        made->halvern.SetUpfrm.MyAlias = "WIDE1-1";
        made->dialogs.Say = nullptr;
        made->OpenTnc();
        made->halvern.ConMdiFrm.SoundCardMenu.Click();
        return made;
    }();
    if (size == 0) return 0;
    auto& main = station->halvern.ConMdiFrm;
    const std::string_view stream(reinterpret_cast<const char*>(data) + 1, size - 1);
    main.KissRxBuffer.clear();
    main.SoundRxBuffer.clear();

    EndMarkCutter cutter(main.MSComm1.Framing);
    cutter.Take(stream);
    while (const auto frame = cutter.Next()) {
        main.MSComm1.Arrived(*frame);
        Require(main.KissRxBuffer.empty(), "nothing of a frame stays behind its own end");
    }

    const std::size_t length = data[0] + 1u;
    std::size_t arrived = 0;
    for (std::size_t at = 0; at < stream.size(); at += length) {
        const auto piece = stream.substr(at, length);
        arrived += piece.size();
        main.SoundSoc.Arrived(piece);
        Require(main.SoundRxBuffer.size() <= arrived, "the buffer holds no more than came in");
    }
    CheckSent(*station, main.MSComm1);
    CheckSent(*station, main.SoundSoc);
    if (station->halvern.PositionFrm.PosLst.Count() > 200) ResetStores(station->halvern, "Clear");
    return 0;
}
